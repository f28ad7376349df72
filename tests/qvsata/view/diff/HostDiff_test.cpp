#include "qvsata/view/diff/HostDiff.h"

#include <gmock/gmock.h>

#include "tests/qvsata/view/Snapshots.h"

namespace qv::test {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using view::CompareHosts;
using view::DiskEvent;
using view::HostDiff;
using view::Snapshot;

TEST(HostDiff, KnowsADiskByItsIdInAnyCase) {
    const HostDiff diff = CompareHosts(SnapshotOf("a", {DiskOfId(1, "IDE\\X", "OK")}),
                                       SnapshotOf("b", {DiskOfId(1, "ide\\x", "OK")}));
    EXPECT_THAT(diff.disks->gone, IsEmpty());
    EXPECT_THAT(diff.disks->appeared, IsEmpty());
}

TEST(HostDiff, KnowsADiskWithoutIdByItsNumber) {
    const HostDiff diff =
        CompareHosts(SnapshotOf("a", {DiskOfId(1, "", "OK"), DiskOfId(2, "", "OK")}),
                     SnapshotOf("b", {DiskOfId(2, "", "OK")}));
    ASSERT_EQ(diff.disks->gone.size(), 1U);
    EXPECT_EQ(diff.disks->gone.front().members["number"], 1);
    EXPECT_THAT(diff.disks->changed, IsEmpty());
}

TEST(HostDiff, KnowsAnInstanceByItsPathInAnyKeyOrder) {
    Snapshot before = SnapshotOf("a", {});
    Snapshot now = SnapshotOf("b", {});
    before.instances = {view::InstanceItem(
        {{"__CLASS", "X"}, {"__RELPATH", R"(X.A="1",B="2")"}, {"Size", 1}}, false)};
    now.instances = {view::InstanceItem(
        {{"__CLASS", "X"}, {"__RELPATH", R"(x.b="2",a="1")"}, {"Size", 2}}, false)};
    EXPECT_EQ(CompareHosts(before, now).instances.changed.size(), 1U);
}

TEST(HostDiff, HasTheEventsOfTheProvidersRule) {
    const HostDiff diff =
        CompareHosts(SnapshotOf("a", {DiskOfId(1, "X", "OK"), DiskOfId(2, "Y", "OK")}),
                     SnapshotOf("b", {DiskOfId(1, "X", "Error"), DiskOfId(3, "Z", "OK")}));
    EXPECT_THAT(*diff.events,
                ElementsAre(Field(&DiskEvent::eventId, "603"), Field(&DiskEvent::eventId, "600"),
                            Field(&DiskEvent::eventId, "613")));
}

TEST(HostDiff, OfADiskThatIsNotWatchedHasNoEvents) {
    Snapshot before = SnapshotOf("a", {DiskOfId(1, "X", "OK")});
    Snapshot now = SnapshotOf("b", {DiskOfId(1, "X", "Error")});
    before.watched->clear();
    now.watched->clear();
    const HostDiff diff = CompareHosts(before, now);
    EXPECT_EQ(diff.disks->changed.size(), 1U);
    EXPECT_THAT(*diff.events, IsEmpty());
}

TEST(HostDiff, LeavesOutWhatOneSideCouldNotRead) {
    Snapshot before = SnapshotOf("a", {DiskOfId(1, "X", "OK")});
    Snapshot now = SnapshotOf("b", {DiskOfId(1, "X", "Error")});
    before.unreadMembers = {"status", "statusWord"};
    now.unreadClasses = {"X"};
    before.instances = {view::InstanceItem({{"__CLASS", "X"}, {"__RELPATH", "X.A=1"}}, false)};
    const HostDiff diff = CompareHosts(before, now);
    EXPECT_TRUE(diff.IsEmpty());
    EXPECT_FALSE(diff.IsComplete());
}

TEST(HostDiff, WithoutTheDisksOfOneSideComparesNone) {
    Snapshot before = SnapshotOf("a", {});
    before.disks.disksAreRead = false;
    before.watched.reset();
    const HostDiff diff = CompareHosts(before, SnapshotOf("b", {DiskOfId(1, "X", "OK")}));
    EXPECT_FALSE(diff.disks.has_value());
    EXPECT_FALSE(diff.events.has_value());
}

}  // namespace
}  // namespace qv::test
