#include "qvsata/view/diff/DiffText.h"

#include <gmock/gmock.h>

#include "tests/qvsata/view/Snapshots.h"

namespace qv::test {
namespace {

using nlohmann::ordered_json;
using testing::HasSubstr;
using testing::Not;
using view::InstanceItem;
using view::Snapshot;

std::string TextOf(const Snapshot& before, const Snapshot& now) {
    return view::PlainText(view::DiffAsText(view::CompareHosts(before, now)));
}

view::Item InstanceOf(const std::string& className, const std::string& id,
                      const std::string& caption) {
    return InstanceItem({{"__CLASS", className},
                         {"__RELPATH", className + ".Id=\"" + id + '"'},
                         {"Caption", caption}},
                        false);
}

TEST(DiffText, OfEqualHostsSaysSo) {
    EXPECT_EQ(TextOf(SnapshotOf("a", {}), SnapshotOf("b", {})),
              "from a (host)\nto   b (host)\nno differences\n");
}

TEST(DiffText, CountsTheInstancesOfANewDisk) {
    Snapshot now = SnapshotOf("b", {DiskOfId(1, "IDE\\X", "OK")});
    now.instances = {
        InstanceOf("A", "IDE&X", "c"), InstanceOf("B", "of IDE&X", "c"),
        InstanceItem({{"__CLASS", "C"}, {"__RELPATH", "C.R=\"A.Id=\\\"IDE&X\\\"\""}}, true)};
    EXPECT_EQ(TextOf(SnapshotOf("a", {}), now),
              "from a (host)\nto   b (host)\n"
              "new: disk #1 Model, OK, and 2 instances and 1 association that belong to it\n"
              "events of this change:\n"
              "    600 Disk #1 Model of host: disk appeared (new, OK).\n");
}

TEST(DiffText, ShowsAChangeOfSeveralInstancesOnce) {
    Snapshot before = SnapshotOf("a", {DiskOfId(1, "X", "OK")});
    Snapshot now = before;
    before.instances = {InstanceOf("A", "X", "old"), InstanceOf("B", "X", "old")};
    now.instances = {InstanceOf("A", "X", "new"), InstanceOf("B", "X", "new")};
    EXPECT_THAT(TextOf(before, now), HasSubstr("changed: disk #1 Model\n"
                                               "    Caption: old → new (A, B)\n"
                                               "this change raises no events\n"));
}

TEST(DiffText, GivesAnInstanceToTheDiskOfTheLongestId) {
    Snapshot before =
        SnapshotOf("a", {DiskOfId(1, "X", "OK"), DiskOfId(2, "XY", "OK"), DiskOfId(3, "Y", "OK")});
    Snapshot now = before;
    now.instances = {InstanceOf("A", "XY", "c")};
    EXPECT_THAT(TextOf(before, now), HasSubstr("changed: disk #2 Model\n    new: 1 instance\n"));
}

TEST(DiffText, CountsOtherInstancesOfOneClassAndNamesASingleOne) {
    Snapshot now = SnapshotOf("b", {});
    now.instances = {InstanceOf("A", "1", "x"), InstanceOf("A", "2", "y"),
                     InstanceOf("B", "1", "z")};
    EXPECT_THAT(TextOf(SnapshotOf("a", {}), now), HasSubstr("new: 2 of A\nnew: B z\n"));
}

TEST(DiffText, SaysWhatWasNotCompared) {
    Snapshot before = SnapshotOf("a", {});
    before.unreadMembers = {"serialNumber"};
    before.unreadClasses = {"QV_SATADiskDrive"};
    EXPECT_EQ(TextOf(before, SnapshotOf("b", {})),
              "from a (host)\nto   b (host)\n"
              "not compared, because not readable: of disks serial number\n"
              "not compared, because not readable: QV_SATADiskDrive\n"
              "no differences in what could be read\n");
}

TEST(DiffText, NamesMembersOfOneLabelOnceAmongThoseNotCompared) {
    Snapshot before = SnapshotOf("a", {});
    before.unreadMembers = {"attachedTo", "attachedToId"};
    EXPECT_THAT(TextOf(before, SnapshotOf("b", {})),
                HasSubstr("not compared, because not readable: of disks attached to\n"));
}

TEST(DiffText, CountsManyClassesThatWereNotCompared) {
    Snapshot before = SnapshotOf("a", {});
    before.unreadClasses = {"A", "B", "C", "D", "E"};
    EXPECT_THAT(TextOf(before, SnapshotOf("b", {})),
                HasSubstr("\nnot compared, because not readable: 5 published classes\n"));
}

TEST(DiffText, ShowsControlCharactersAsCodes) {
    Snapshot before = SnapshotOf("a\x1b", {});
    Snapshot now = SnapshotOf("b", {});
    now.computer = "host\n";
    now.instances = {InstanceOf("A", "1", "x\x1b]0;title\x07")};
    const std::string text = TextOf(before, now);
    EXPECT_THAT(text, Not(HasSubstr("\x1b")));
    EXPECT_THAT(text, HasSubstr("from a\\x1b (host)\nto   b (host\\x0a)\n"));
    EXPECT_THAT(text, HasSubstr("new: A x\\x1b]0;title\\x07\n"));
}

}  // namespace
}  // namespace qv::test
