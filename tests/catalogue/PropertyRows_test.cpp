// Each published property of a class, in a test of its own named Class_Property.
#include <gtest/gtest.h>

#include <map>

#include "tests/catalogue/OneDiskHost.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

struct PropertyRow {
    std::string name;  // Class_Property, with driver and number of the put if needed
    std::string className;
    std::string driver;
    std::size_t position;
    PropertyEntry expected;
};

void PrintTo(const PropertyRow& row, std::ostream* out) {
    PrintTo(row.expected, out);
}

void AppendRows(std::vector<PropertyRow>& rows, const std::string& className,
                const ExpectedTable& table) {
    std::map<std::string, int> puts;
    for (const ExpectedProperty& property : table.properties) {
        std::string name = className.substr(3) + '_' + property.put.name;
        name += table.driver.empty() ? "" : '_' + table.driver;
        if (const int put = ++puts[property.put.name]; put > 1) {
            name += "_put" + std::to_string(put);
        }
        const auto position = static_cast<std::size_t>(&property - table.properties.data());
        rows.push_back({name, className, table.driver, position, property.put});
    }
}

std::vector<PropertyRow> PropertyRowsOfAllClasses() {
    std::vector<PropertyRow> rows;
    for (const ExpectedInstanceClass& one : ExpectedInstanceClasses()) {
        for (const ExpectedTable& table : one.tables) {
            AppendRows(rows, one.name, table);
        }
    }
    return rows;
}

class PropertyRowsTest : public OneDiskHost, public testing::TestWithParam<PropertyRow> {
protected:
    PropertyRowsTest() {
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

TEST_P(PropertyRowsTest, ArePublishedInTheirPlace) {
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

INSTANTIATE_TEST_SUITE_P(Each, PropertyRowsTest, testing::ValuesIn(PropertyRowsOfAllClasses()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace qv::test
