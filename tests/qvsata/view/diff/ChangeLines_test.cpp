#include "qvsata/view/diff/ChangeLines.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using testing::ElementsAre;
using view::LinesOf;

TEST(ChangeLines, HidesACodeWhoseWordChanged) {
    EXPECT_THAT(LinesOf({{"status", 2, 6}, {"statusWord", "OK", "Error"}}),
                ElementsAre("status: OK → Error"));
    EXPECT_THAT(LinesOf({{"status", 2, 6}}), ElementsAre("status code: 2 → 6"));
}

TEST(ChangeLines, SaysWhatAValueMeans) {
    EXPECT_THAT(LinesOf({{"number", 1, nullptr},
                         {"size", 512, nullptr},
                         {"failurePredicted", false, true},
                         {"whyUnpublished", nullptr, "bus is SCSI"}}),
                ElementsAre("drive number: #1 → none", "size: 512 bytes → none",
                            "failure predicted: no → yes", "published: yes → no: bus is SCSI"));
}

TEST(ChangeLines, ListsArraysAndShowsControlCharactersAsCodes) {
    EXPECT_THAT(LinesOf({{"Any", {3, 4}, "\x1b"}}), ElementsAre("Any: 3, 4 → \\x1b"));
}

}  // namespace
}  // namespace qv::test
