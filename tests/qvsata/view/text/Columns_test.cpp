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

TEST(Columns, CountOfOneIsSingular) {
    EXPECT_EQ(view::CountOf(0, "disk"), "0 disks");
    EXPECT_EQ(view::CountOf(1, "disk"), "1 disk");
}

}  // namespace
}  // namespace qv::test
