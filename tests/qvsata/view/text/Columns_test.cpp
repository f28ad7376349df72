#include "qvsata/view/text/Columns.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::DiskName;

TEST(Columns, DiskNameIsTheDriveNumberAndTheModelWithoutBlanksAtItsEnds) {
    EXPECT_EQ(DiskName(1, "  HALDEN HD160  "), "#1 HALDEN HD160");
}

TEST(Columns, DiskNameLeavesOutWhatIsMissing) {
    EXPECT_EQ(DiskName(1, " "), "#1");
    EXPECT_EQ(DiskName(std::nullopt, "HALDEN"), "HALDEN");
    EXPECT_EQ(DiskName(std::nullopt, ""), "-");
}

}  // namespace
}  // namespace qv::test
