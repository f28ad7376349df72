#include "qvsata/view/text/Colour.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::WantsColour;

TEST(Colour, IsTrueOnATerminalWithoutNO_COLOR) {
    EXPECT_TRUE(WantsColour(true, nullptr));
}

TEST(Colour, IsTrueWhereNO_COLORIsEmpty) {
    EXPECT_TRUE(WantsColour(true, ""));
}

TEST(Colour, IsFalseWhateverNO_COLORIsSetTo) {
    for (const char* value : {"1", "0", "false", " "}) {
        EXPECT_FALSE(WantsColour(true, value)) << value;
    }
}

TEST(Colour, IsFalseWhereThereIsNoTerminal) {
    EXPECT_FALSE(WantsColour(false, nullptr));
    EXPECT_FALSE(WantsColour(false, ""));
    EXPECT_FALSE(WantsColour(false, "1"));
}

}  // namespace
}  // namespace qv::test
