// Each property that a class publishes is a test of its own, named Class_Property.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "tests/core/OneDiskHost.h"
#include "tests/core/PropertyTables.h"

namespace qv {
namespace {

using namespace test;

struct ClassTable {
    std::string className;
    std::string driver;  // the one that serves the controller, where the class depends on it
    PropertyTable table;
};

std::vector<ClassTable> ClassTables() {
    std::vector<ClassTable> tables{
        {"QV_WinComputerSystem", {}, WinComputerSystemTable()},
        {"QV_SATAPortController", {}, SATAPortControllerTable()},
        {"QV_SATALogicalPort", {}, SATALogicalPortTable()},
        {"QV_ISATAProtocolEndpoint", {}, ISATAProtocolEndpointTable()},
        {"QV_TSATAProtocolEndpoint", {}, TSATAProtocolEndpointTable()},
        {"QV_SATAPortControllerProduct", {}, SATAPortControllerProductTable()},
        {"QV_SATAControllerLocation", {}, SATAControllerLocationTable()},
        {"QV_SATAPortControllerPhysicalPackage", {}, SATAPortControllerPhysicalPackageTable()},
        {"QV_SATADiskDrive", {}, SATADiskDriveTable()},
        {"QV_SATAStorageExtent", {}, SATAStorageExtentTable()},
        {"QV_SATADiskDriveFW", {}, SATADiskDriveFWTable()},
        {"QV_SATADiskPhysicalPackage", {}, SATADiskPhysicalPackageTable()},
        {"QV_SATADiskLocation", {}, SATADiskLocationTable()},
        {"QV_SATAStorageCollection", {}, SATAStorageCollectionTable()},
    };
    for (const char* driver : {"msahci", "pciide", "pciidex", "atapi"}) {
        tables.push_back(
            {"QV_SATAPortControllerBIOS", driver, SATAPortControllerBIOSTable(driver)});
        tables.push_back({"QV_SATAPortControllerFW", driver, SATAPortControllerFWTable(driver)});
        tables.push_back(
            {"QV_SATAPortControllerDriver", driver, SATAPortControllerDriverTable(driver)});
    }
    return tables;
}

struct PropertyRow {
    std::string name;  // Class_Property, with the driver and the number of the put where needed
    std::string className;
    std::string driver;
    std::size_t position;
    PropertyEntry expected;
};

void PrintTo(const PropertyRow& row, std::ostream* out) {
    PrintTo(row.expected, out);
}

std::vector<PropertyRow> PropertyRowsOf(const std::vector<ClassTable>& tables) {
    std::vector<PropertyRow> rows;
    for (const ClassTable& one : tables) {
        std::map<std::string, int> puts;
        for (std::size_t position = 0; position < one.table.size(); ++position) {
            const PropertyEntry& entry = one.table[position];
            std::string name = one.className.substr(3) + '_' + entry.name;
            name += one.driver.empty() ? "" : '_' + one.driver;
            if (const int put = ++puts[entry.name]; put > 1) {
                name += "_put" + std::to_string(put);
            }
            rows.push_back({name, one.className, one.driver, position, entry});
        }
    }
    return rows;
}

class PropertyRows : public OneDiskHost, public testing::TestWithParam<PropertyRow> {
protected:
    PropertyRows() {
        const PropertyRow& row = GetParam();
        host.Answer(mediaQuery, {Media(drive0, "SN1")});
        if (row.className == "QV_SATADiskDrive") {
            host.Answer(disksQuery, {fullDisk});
        }
        const platform::Value channelCaption = "ATA Channel 0";
        host.Answer(controllersQuery,
                    {With(Controller(ahciId), "ProtocolSupported", std::uint16_t{37}),
                     With(Controller(channelId), "Caption", channelCaption)});
        if (!row.driver.empty()) {
            ServeWith(host, ahciId, row.driver);
        }
    }
};

TEST_P(PropertyRows, ArePublishedInTheirPlace) {
    const PropertyRow& row = GetParam();
    const RecordList records = All(row.className);
    ASSERT_EQ(records.size(), 1U);
    ASSERT_LT(row.position, records[0].properties.size());
    const PropertyEntry& published = records[0].properties[row.position];
    EXPECT_EQ(published.name, row.expected.name);
    EXPECT_EQ(published.value, row.expected.value);
    EXPECT_EQ(static_cast<std::uint32_t>(published.type),
              static_cast<std::uint32_t>(row.expected.type));
    EXPECT_EQ(published.key, row.expected.key);
}

INSTANTIATE_TEST_SUITE_P(Each, PropertyRows, testing::ValuesIn(PropertyRowsOf(ClassTables())),
                         [](const auto& row) { return row.param.name; });

TEST(PropertyRowsOfAllClasses, AreOfTheSeventeenClassesOfInstances) {
    std::map<std::string, std::size_t> sizes;
    for (const ClassTable& one : ClassTables()) {
        sizes[one.className] = std::max(sizes[one.className], one.table.size());
    }
    EXPECT_EQ(sizes, (std::map<std::string, std::size_t>{
                         {"QV_WinComputerSystem", 2},
                         {"QV_SATAPortController", 14},
                         {"QV_SATALogicalPort", 10},
                         {"QV_ISATAProtocolEndpoint", 8},
                         {"QV_TSATAProtocolEndpoint", 8},
                         {"QV_SATAPortControllerBIOS", 11},
                         {"QV_SATAPortControllerFW", 11},
                         {"QV_SATAPortControllerDriver", 10},
                         {"QV_SATAPortControllerProduct", 5},
                         {"QV_SATAControllerLocation", 8},
                         {"QV_SATAPortControllerPhysicalPackage", 8},
                         {"QV_SATADiskDrive", 27},
                         {"QV_SATAStorageExtent", 16},
                         {"QV_SATADiskDriveFW", 12},
                         {"QV_SATADiskPhysicalPackage", 8},
                         {"QV_SATADiskLocation", 7},
                         {"QV_SATAStorageCollection", 6},
                     }));
}

}  // namespace
}  // namespace qv
