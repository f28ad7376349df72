#include "qvsata/view/diff/DiffJson.h"

#include <gtest/gtest.h>

#include "tests/qvsata/view/Snapshots.h"

namespace qv::test {
namespace {

using nlohmann::ordered_json;
using view::CompareHosts;
using view::DiffAsJson;

TEST(DiffJson, HoldsEachChangeAndTheEvents) {
    const ordered_json diff = DiffAsJson(CompareHosts(
        SnapshotOf("a", {DiskOfId(1, "X", "OK")}), SnapshotOf("b", {DiskOfId(1, "X", "Error")})));
    EXPECT_EQ(diff["from"], (ordered_json{{"name", "a"}, {"computer", "host"}}));
    EXPECT_EQ(diff["same"], false);
    EXPECT_EQ(diff["disks"]["changed"].dump(),
              R"([{"number":1,"model":"Model","deviceId":"X","changes":[)"
              R"({"property":"status","from":2,"to":6},)"
              R"({"property":"statusWord","from":"OK","to":"Error"}]}])");
    EXPECT_EQ(diff["events"][0]["event"], "603");
    EXPECT_FALSE(diff["events"][0].contains("time"));
}

TEST(DiffJson, DoesNotSayThatWhatWasNotReadIsTheSame) {
    view::Snapshot before = SnapshotOf("a", {});
    before.unreadClasses = {"QV_SATADiskDrive"};
    const ordered_json diff = DiffAsJson(CompareHosts(before, SnapshotOf("b", {})));
    EXPECT_TRUE(diff["same"].is_null());
    EXPECT_EQ(diff["notCompared"]["classes"], ordered_json::array({"QV_SATADiskDrive"}));
}

}  // namespace
}  // namespace qv::test
