#include "qvsata/view/Colour.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::WantsColour;

TEST(WantsColour, IsTrueOnATerminalWithoutNO_COLOR) {
    EXPECT_TRUE(WantsColour(true, nullptr));
}

TEST(WantsColour, IsTrueWhereNO_COLORIsEmpty) {
    EXPECT_TRUE(WantsColour(true, ""));
}

TEST(WantsColour, IsFalseWhateverNO_COLORIsSetTo) {
    for (const char* value : {"1", "0", "false", " "}) {
        EXPECT_FALSE(WantsColour(true, value)) << value;
    }
}

TEST(WantsColour, IsFalseWhereThereIsNoTerminal) {
    EXPECT_FALSE(WantsColour(false, nullptr));
    EXPECT_FALSE(WantsColour(false, ""));
    EXPECT_FALSE(WantsColour(false, "1"));
}

}  // namespace
}  // namespace qv::test
