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

TEST(MofText, WritesTheDefaultOfA64BitNumberAsANumber) {
    service::Namespaces namespaces;
    service::ReadMof("class A { uint64 N = 5; sint64 M[] = {-1, 2}; };", "a.mof", namespaces);
    EXPECT_EQ(ClassAsMof(*service::Resolve(namespaces.Of("root\\default").FindDefined("A"), "SRV",
                                           "root\\default")),
              "class A\n{\n    uint64 N = 5;\n    sint64 M[] = {-1, 2};\n};\n");
}

TEST(MofText, WritesACharacterThatControlsTextAsItsCode) {
    EXPECT_EQ(MofValueText(std::string("a\x1B\xE2\x80\xAE")), R"("a\x001B\x202E")");
    EXPECT_EQ(MofValueText(std::string("\xF3\xA0\x80\x81")), R"("\xDB40\xDC01")");
}

}  // namespace
}  // namespace qv::test
