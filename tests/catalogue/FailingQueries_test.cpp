// What each instance class gives when one of its queries fails, each query in turn.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "catalogue/Catalogue.h"
#include "catalogue/Classes.h"
#include "tests/catalogue/OneDiskHost.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

/// Answers as another port does, but for one query that fails: the one with this number from 1 on.
class NthQueryFails : public platform::QueryPort {
public:
    NthQueryFails(const platform::QueryPort& answers, std::size_t failing)
        : answers_(answers), failing_(failing) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        if (++run_ != failing_) {
            return answers_.RunWqlQuery(nameSpace, query, rows);
        }
        rows.clear();
        return Status::failed;
    }

private:
    const platform::QueryPort& answers_;
    std::size_t failing_;
    mutable std::size_t run_ = 0;
};

using Names = std::set<std::string>;
using Changes = std::map<std::string, std::string>;

struct Failure {
    const char* className;
    std::size_t query;  ///< the number of the query that fails
    bool publishes;     ///< whether the one instance is still published
    Names without;      ///< the properties that it then lacks
    Changes with;       ///< the properties that then have another value
};

const Names partitionProperties{
    "Caption",          "Description",     "Name", "BlockSize", "Size", "Bootable", "BootPartition",
    "PrimaryPartition", "ConsumableBlocks"};
const Changes noPosition{{"PhysicalPosition", ""},
                         {"Description", "Standard ATA Disk Drive at ,"},
                         {"ElementName", "Standard ATA Disk Drive at ,"}};

const std::vector<Failure> failures{
    {"QV_SATAPortController", 1, false, {}, {}},
    {"QV_SATADiskDrive", 1, false, {}, {}},
    {"QV_SATADiskDrive", 2, true, {"SerialNumber"}, {}},
    {"QV_SATAStorageExtent", 1, false, {}, {}},
    {"QV_SATAStorageExtent", 2, true, partitionProperties, {}},
    {"QV_SATAStorageExtent", 3, true, partitionProperties, {}},
    {"QV_SATADiskDriveFW", 1, false, {}, {}},
    {"QV_SATADiskDriveFW", 2, true, {"SerialNumber"}, {}},
    {"QV_SATAPortControllerPhysicalPackage", 1, false, {}, {}},
    {"QV_SATADiskPhysicalPackage", 1, false, {}, {}},
    {"QV_SATADiskPhysicalPackage", 2, true, {"SerialNumber", "Name"}, {}},
    {"QV_SATAStorageCollection", 1, false, {}, {}},
    {"QV_SATADiskLocation", 1, false, {}, {}},
    {"QV_SATADiskLocation", 2, true, {}, noPosition},
    {"QV_SATADiskLocation", 3, true, {}, noPosition},
    {"QV_SATAControllerLocation", 1, false, {}, {}},
    {"QV_SATAPortControllerProduct", 1, false, {}, {}},
    {"QV_SATALogicalPort", 1, false, {}, {}},
    {"QV_SATALogicalPort", 2, false, {}, {}},
    {"QV_SATALogicalPort", 3, true, {}, {{"DeviceID", channelKey + " connected to "}}},
    {"QV_ISATAProtocolEndpoint", 1, false, {}, {}},
    {"QV_TSATAProtocolEndpoint", 1, false, {}, {}},
    {"QV_TSATAProtocolEndpoint", 2, true, {"Name"}, {}},
    {"QV_TSATAProtocolEndpoint", 3, true, {"Name"}, {}},
    {"QV_SATAPortControllerDriver", 1, false, {}, {}},
    {"QV_SATAPortControllerDriver", 2, false, {}, {}},
    {"QV_SATAPortControllerDriver", 3, false, {}, {}},
    {"QV_SATAPortControllerDriver", 4, true, {}, {}},
    {"QV_SATAPortControllerFW", 1, false, {}, {}},
    {"QV_SATAPortControllerFW", 2, false, {}, {}},
    {"QV_SATAPortControllerFW", 3, false, {}, {}},
    {"QV_SATAPortControllerFW", 4, true, {}, {}},
    {"QV_SATAPortControllerBIOS", 1, false, {}, {}},
    {"QV_SATAPortControllerBIOS", 2, false, {}, {}},
    {"QV_SATAPortControllerBIOS", 3, false, {}, {}},
    {"QV_SATAPortControllerBIOS", 4, true, {}, {}},
};

class FailingQueriesTest : public OneDiskHost, public testing::TestWithParam<Failure> {
protected:
    RecordList Publish(const char* className, std::size_t failing) {
        const NthQueryFails queries(host, failing);
        return NativeAPI(PublishedCatalogue(), queries, host, host)
            .BuildInstances(className, mode::allProperties, {});
    }
};

TEST_P(FailingQueriesTest, GiveWhatTheTableSays) {
    const Failure& failure = GetParam();
    RecordList expected = Publish(failure.className, 0);
    ASSERT_EQ(expected.size(), 1U);
    if (failure.publishes) {
        auto& properties = expected.front().properties;
        std::erase_if(properties, [&failure](const PropertyEntry& entry) {
            return failure.without.contains(entry.name);
        });
        for (PropertyEntry& entry : properties) {
            const auto changed = failure.with.find(entry.name);
            entry.value = changed == failure.with.end() ? entry.value : changed->second;
        }
    } else {
        expected.clear();
    }
    EXPECT_EQ(Publish(failure.className, failure.query), expected);
}

INSTANTIATE_TEST_SUITE_P(Table, FailingQueriesTest, testing::ValuesIn(failures),
                         [](const auto& one) {
                             return std::string(one.param.className) + "_query" +
                                    std::to_string(one.param.query);
                         });

class FailingQueriesTableTest : public OneDiskHost, public testing::Test {};

TEST_F(FailingQueriesTableTest, AreInTheTable) {
    for (const PublishedClass& one : PublishedClasses().first(instanceClassCount)) {
        host.asked.clear();
        api.BuildInstances(one.name, mode::allProperties, {});
        const auto listed = std::ranges::count(failures, one.name, &Failure::className);
        // The software classes ask for the devices of the channel too: one query without answer.
        EXPECT_EQ(static_cast<std::size_t>(listed), host.asked.size()) << one.name;
    }
}

}  // namespace
}  // namespace qv::test
