#include "NativeAPI/KeptRows.h"

#include <gmock/gmock.h>

#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

using TextList = std::vector<std::string>;

std::string PnpIdOf(const std::shared_ptr<const platform::Row>& row) {
    return TextOrEmpty(*row, "PNPDeviceID");
}

TEST(KeptRows, QueryIdeDisksKeepsThePublishedDisksInTheirOrder) {
    ScriptedHost host;
    host.Answer(disksQuery, {Disk("B"), With(Disk("S"), "InterfaceType", "SCSI"), Disk("A")});
    EXPECT_THAT(QueryIdeDisks(host), testing::ElementsAre(testing::ResultOf(PnpIdOf, "B"),
                                                          testing::ResultOf(PnpIdOf, "A")));
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

TEST(KeptRows, QueryIdeDisksGivesNoneWhenTheQueryFails) {
    EXPECT_TRUE(QueryIdeDisks(ScriptedHost()).empty());
}

TextList KeptIds(const ScriptedHost& host, bool (*isKept)(std::string_view)) {
    TextList ids;
    for (const auto& [deviceId, row] : QueryControllers(host, isKept)) {
        EXPECT_EQ(TextOrEmpty(*row, "DeviceID"), deviceId);
        ids.push_back(deviceId);
    }
    return ids;
}

TEST(KeptRows, QueryControllersKeepsTheRowsOfTheRuleInTheirOrder) {
    ScriptedHost host;
    host.Answer(controllersQuery, {Controller(R"(PCI\B&REV_1)"), Controller(channelId),
                                   Without(Controller("x"), "DeviceID"), Controller(ahciId)});
    EXPECT_EQ(KeptIds(host, IsPortController), (TextList{R"(PCI\B&REV_1)", ahciId}));
    EXPECT_EQ(KeptIds(host, IsInitiator), TextList{channelId});
    EXPECT_EQ(host.asked, InCimv2({controllersQuery, controllersQuery}));
}

TEST(KeptRows, QueryControllersGivesNoneWhenTheQueryFails) {
    EXPECT_TRUE(KeptIds(ScriptedHost(), IsPortController).empty());
}

}  // namespace
}  // namespace qv::test
