#include "qvsata/mof/MofText.h"

#include <gtest/gtest.h>

#include <vector>

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

}  // namespace
}  // namespace qv::test
