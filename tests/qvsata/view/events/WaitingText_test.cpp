#include "qvsata/view/events/WaitingText.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using namespace view;
using std::chrono::milliseconds;

TEST(WaitingText, NamesTheRecordingThatIsNext) {
    EXPECT_EQ(WaitingText({1, 3}, milliseconds(30000)), "looking at recording 2 of 3 in 30 s");
}

TEST(WaitingText, SaysThatTheLastRecordingIsLookedAtAgain) {
    EXPECT_EQ(WaitingText({3, 3}, milliseconds(30000)),
              "looking at recording 3 of 3 again in 30 s");
}

TEST(WaitingText, SpeaksOfTheDisksWhereNothingFollows) {
    EXPECT_EQ(WaitingText({1, 1}, milliseconds(30000)), "looking at the disks again in 30 s");
    EXPECT_EQ(WaitingText({}, milliseconds(30000)), "looking at the disks again in 30 s");
}

TEST(WaitingText, CountsASecondThatHasBegun) {
    EXPECT_EQ(WaitingText({}, milliseconds(1)), "looking at the disks again in 1 s");
    EXPECT_EQ(WaitingText({}, milliseconds(28001)), "looking at the disks again in 29 s");
}

}  // namespace
}  // namespace qv::test
