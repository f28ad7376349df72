#include "qvsata/view/text/CellRow.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::CellRow;

std::string LineOf(const CellRow& row, const std::vector<std::size_t>& widths) {
    view::StyledText text;
    view::AppendRow(row, widths, text);
    return view::PlainText(text);
}

TEST(CellRow, IsPaddedToTheWidthsOfItsColumns) {
    EXPECT_EQ(LineOf({{{"a"}}, {{"b"}, true}, {{"c"}}}, {2, 3, 4}), "a     b  c\n");
}

TEST(CellRow, IsNotPaddedForACellOfAnyLength) {
    const std::string longCell(300, 'x');
    const std::vector<std::size_t> widths{300, 300, 1};
    EXPECT_EQ(LineOf({{{"a"}}, {{"b"}, true}, {{"c"}}}, widths),
              "a" + std::string(99 + 2 + 99, ' ') + "b  c\n");
    EXPECT_EQ(LineOf({{{longCell}}, {{longCell}, true}, {{"c"}}}, widths),
              longCell + "  " + longCell + "  c\n");
}

}  // namespace
}  // namespace qv::test
