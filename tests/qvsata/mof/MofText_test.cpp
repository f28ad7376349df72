#include "qvsata/mof/MofText.h"

#include <gtest/gtest.h>

#include <vector>

#include "qvsata/mof/MofReader.h"

namespace qv::test {
namespace {

using service::MofValueText;

TEST(MofText, WritesARealNumberWithAFraction) {
    EXPECT_EQ(MofValueText(0.5), "0.5");
    EXPECT_EQ(MofValueText(-0.0), "-0.0");
    EXPECT_EQ(MofValueText(-2.0), "-2.0");
    EXPECT_EQ(MofValueText(1e53), "1.0e+53");
    EXPECT_EQ(MofValueText(5e-324), "5.0e-324");
    EXPECT_EQ(MofValueText(-1.2778e30), "-1.2778e+30");
    EXPECT_EQ(MofValueText(std::vector<double>{1e-20, 3.0}), "{1.0e-20, 3.0}");
}

TEST(MofText, WritesAClassWithItsQualifiersAndWhatItDeclaresItself) {
    service::Namespaces namespaces;
    service::ReadMof(
        "[Abstract] class A { [key] string K; };\n"
        "[dynamic, provider(\"P\"), Codes{1, 2}] class b : a { [Description(\"d\")] uint16 N[]; };",
        "a.mof", namespaces);
    const service::ClassRepository& repository = namespaces.Of("root\\default");
    EXPECT_EQ(ClassAsMof(*service::Resolve(repository.FindDefined("B"), "SRV", "root\\default")),
              "[dynamic, provider(\"P\"), Codes{1, 2}]\n"
              "class b : A\n"
              "{\n"
              "    [Description(\"d\")] uint16 N[];\n"
              "};\n");
}

}  // namespace
}  // namespace qv::test
