#include <gtest/gtest.h>

#include "tests/core/PropertyTables.h"
#include "tests/core/Records.h"
#include "tests/core/SourceRows.h"

namespace qv {
namespace {

using namespace test;

class WinComputerSystem : public testing::Test, public Builders {};

const InstanceRecord fullRecord = Record("QV_WinComputerSystem", WinComputerSystemTable());

TEST_F(WinComputerSystem, PublishesExactlyItsTwoKeys) {
    EXPECT_EQ(api.getQV_WinComputerSystem({"QV_WinComputerSystem", mode::allProperties, {}}),
              RecordList{fullRecord});
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(WinComputerSystem, SpellsTheRecordsClassAsTheCallerAndTheKeyAsItIs) {
    EXPECT_EQ(api.getQV_WinComputerSystem({"qv_wincomputersystem", mode::allProperties, {}}),
              RecordList{Record("qv_wincomputersystem", fullRecord.properties)});
}

TEST_F(WinComputerSystem, GetOfAnotherNameReturnsTheLocalHost) {
    EXPECT_EQ(api.BuildInstances(
                  "QV_WinComputerSystem", mode::allProperties,
                  R"(QV_WinComputerSystem.CreationClassName="QV_WinComputerSystem",Name="other")"),
              RecordList{fullRecord});
}

TEST_F(WinComputerSystem, IgnoresTheMode) {
    for (const std::uint32_t word : {0U, mode::keysOnly, mode::foundByKey}) {
        EXPECT_EQ(api.getQV_WinComputerSystem({"QV_WinComputerSystem", word, ""}),
                  RecordList{fullRecord});
    }
}

TEST_F(WinComputerSystem, HasNoNameWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(api.getQV_WinComputerSystem({"QV_WinComputerSystem", mode::allProperties, {}}),
              RecordList{Record("QV_WinComputerSystem",
                                {Key("CreationClassName", "QV_WinComputerSystem")})});
}

}  // namespace
}  // namespace qv
