// The partitions of disks by their links (source/SourceRules).
#include <gtest/gtest.h>

#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

// Returns the DeviceIDs of a disk's partitions, in order.
std::vector<std::string> PartitionsOf(std::string_view devicePath, std::vector<Properties> links,
                                      std::vector<Properties> partitions) {
    const platform::Rows disks = RowsOf({Disk("a disk", std::string(devicePath))});
    const platform::Rows rows = RowsOf(std::move(partitions));
    std::vector<std::string> found;
    for (const auto* row :
         PartitionLinks(disks, RowsOf(std::move(links)), rows).PartitionsOfDisk(devicePath)) {
        found.push_back(TextOrEmpty(*row, "DeviceID"));
    }
    return found;
}

using Ids = std::vector<std::string>;
const std::string drive1 = R"(\\.\PHYSICALDRIVE1)";
const std::string drive10 = R"(\\.\PHYSICALDRIVE10)";

TEST(PartitionLinks, AreThoseOfItsLinksInTheirOrder) {
    EXPECT_EQ(PartitionsOf(drive1,
                           {PartitionLink(drive1, "B"), PartitionLink(R"(\\.\PHYSICALDRIVE2)", "C"),
                            PartitionLink(drive1, "A")},
                           {Partition("A"), Partition("B"), Partition("C")}),
              (Ids{"B", "A"}));
}

TEST(PartitionLinks, IncludeThoseOfADiskWhosePathBeginsWithItsOwn) {
    const std::vector<Properties> links{PartitionLink(drive10, "Disk #10, Partition #0")};
    const std::vector<Properties> partitions{Partition("Disk #10, Partition #0")};
    EXPECT_EQ(PartitionsOf(drive1, links, partitions), (Ids{"Disk #10, Partition #0"}));
    EXPECT_EQ(PartitionsOf(drive10, links, partitions), (Ids{"Disk #10, Partition #0"}));
}

TEST(PartitionLinks, TakeTheFirstPartitionWhoseIdTheLinkContains) {
    EXPECT_EQ(
        PartitionsOf(drive1, {PartitionLink(drive1, "Disk #1, Partition #10")},
                     {Partition("Disk #1, Partition #1"), Partition("Disk #1, Partition #10")}),
        (Ids{"Disk #1, Partition #1"}));
    EXPECT_EQ(
        PartitionsOf(drive1, {PartitionLink(drive1, "Disk #1, Partition #10")},
                     {Partition("Disk #1, Partition #10"), Partition("Disk #1, Partition #1")}),
        (Ids{"Disk #1, Partition #10"}));
}

TEST(PartitionLinks, AreComparedWithRegardToCase) {
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(R"(\\.\PhysicalDrive1)", "A")}, {Partition("A")}),
              Ids{});
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(drive1, "part q")}, {Partition("PART Q")}),
              Ids{});
}

TEST(PartitionLinks, PassOverALinkToNoPartition) {
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(drive1, "X#9"), PartitionLink(drive1, "Y#9")},
                           {Partition("Y#9")}),
              (Ids{"Y#9"}));
}

TEST(PartitionLinks, AreGivenOncePerLink) {
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(drive1, "Y#9"), PartitionLink(drive1, "Y#9")},
                           {Partition("Y#9")}),
              (Ids{"Y#9", "Y#9"}));
}

TEST(PartitionLinks, BackslashesOfThePartitionsIdCount) {
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(drive1, R"(a\b)")}, {Partition(R"(a\b)")}),
              Ids{});
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(drive1, R"(a\b)")}, {Partition(R"(a\\b)")}),
              (Ids{R"(a\\b)"}));
}

TEST(PartitionLinks, AMissingIdIsContainedInEveryText) {
    EXPECT_EQ(PartitionsOf("", {PartitionLink(drive1, "A#1")}, {Partition("A#1")}), (Ids{"A#1"}));
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(drive1, "A#1")},
                           {With(Partition("A#1"), {{"DeviceID", std::monostate{}}})}),
              (Ids{""}));
}

TEST(PartitionLinks, AreGivenToEachOfSeveralDisksWithOneId) {
    const platform::Rows disks =
        RowsOf({Disk("one", drive1), Disk("other", drive1), Disk("10", drive10)});
    const platform::Rows links = RowsOf({PartitionLink(drive1, "A")});
    const platform::Rows partitions = RowsOf({Partition("A")});
    const PartitionLinks join(disks, links, partitions);
    EXPECT_EQ(join.PartitionsOfDisk(drive1),
              std::vector<const platform::Row*>{partitions.front().get()});
    EXPECT_TRUE(join.PartitionsOfDisk(drive10).empty());
}

TEST(PartitionLinks, AreNoneOfADiskThatIsNotAmongThose) {
    const platform::Rows partitions = RowsOf({Partition("A")});
    EXPECT_TRUE(PartitionLinks({}, RowsOf({PartitionLink(drive1, "A")}), partitions)
                    .PartitionsOfDisk(drive1)
                    .empty());
}

TEST(PartitionLinks, AreNoneWithoutRows) {
    EXPECT_EQ(PartitionsOf(drive1, {}, {Partition("A")}), Ids{});
    EXPECT_EQ(PartitionsOf(drive1, {PartitionLink(drive1, "A")}, {}), Ids{});
}

}  // namespace
}  // namespace qv::test
