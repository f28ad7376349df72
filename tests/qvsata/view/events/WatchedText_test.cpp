#include "qvsata/view/events/WatchedText.h"

#include <gtest/gtest.h>

#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {
namespace {

using view::WatchedText;

TEST(WatchedText, CountsTheWatchedDisksAndNamesTheOthersWithTheirReasons) {
    view::OsDisk watched = NumberedDisk(0, {2, "OK"});
    view::OsDisk other = NumberedDisk(1, {2, "OK"});
    other.model = "B";
    other.whyUnwatched = "bus is SCSI";
    EXPECT_EQ(WatchedText({watched, other}),
              "watching 1 of 2 disks\n"
              "not watched: #1 B: bus is SCSI\n");
}

TEST(WatchedText, NamesTheDisksThatAreNotOkAlready) {
    view::OsDisk disk = NumberedDisk(0, {2, "OK"});
    disk.model = "A";
    disk.failureIsPredicted = true;
    EXPECT_EQ(WatchedText({disk}),
              "watching 1 of 1 disk\n"
              "not OK already: #0 A: failure predicted (reported OK)\n");
}

}  // namespace
}  // namespace qv::test
