#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

class WinComputerSystemTest : public testing::Test, public Builders {
protected:
    RecordList InMode(std::uint32_t word) const {
        return api.getQV_WinComputerSystem({"QV_WinComputerSystem", word, ""});
    }
};

const InstanceRecord fullRecord = ExpectedRecord("QV_WinComputerSystem");

TEST_F(WinComputerSystemTest, PublishesExactlyItsTwoKeys) {
    EXPECT_EQ(api.getQV_WinComputerSystem({"QV_WinComputerSystem", mode::allProperties, {}}),
              RecordList{fullRecord});
    EXPECT_TRUE(host.asked.empty());
}

TEST_F(WinComputerSystemTest, SpellsTheRecordsClassAsTheCallerAndTheKeyAsItIs) {
    EXPECT_EQ(api.getQV_WinComputerSystem({"qv_wincomputersystem", mode::allProperties, {}}),
              RecordList{Record("qv_wincomputersystem", fullRecord.properties)});
}

TEST_F(WinComputerSystemTest, GetOfAnotherNameReturnsTheLocalHost) {
    EXPECT_EQ(api.BuildInstances(
                  "QV_WinComputerSystem", mode::allProperties,
                  R"(QV_WinComputerSystem.CreationClassName="QV_WinComputerSystem",Name="other")"),
              RecordList{fullRecord});
}

TEST_F(WinComputerSystemTest, IgnoresTheMode) {
    EXPECT_EQ(InMode(0), RecordList{fullRecord});
    EXPECT_EQ(InMode(mode::keysOnly), RecordList{fullRecord});
    EXPECT_EQ(InMode(mode::foundByKey), RecordList{fullRecord});
}

TEST_F(WinComputerSystemTest, HasNoNameWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(api.getQV_WinComputerSystem({"QV_WinComputerSystem", mode::allProperties, {}}),
              RecordList{Record("QV_WinComputerSystem",
                                {Key("CreationClassName", "QV_WinComputerSystem")})});
}

}  // namespace
}  // namespace qv::test
