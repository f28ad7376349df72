#include "NativeAPI/KeptRows.h"

#include <gtest/gtest.h>

#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "tests/core/SourceRows.h"

namespace qv {
namespace {

using namespace test;
using Texts = std::vector<std::string>;

TEST(QueryIdeDisks, KeepsThePublishedDisksInTheirOrder) {
    ScriptedHost host;
    host.Answer(disksQuery, {Disk("B"), With(Disk("S"), "InterfaceType", "SCSI"), Disk("A")});
    Texts ids;
    for (const auto& disk : QueryIdeDisks(host)) {
        ids.push_back(TextOrEmpty(*disk, "PNPDeviceID"));
    }
    EXPECT_EQ(ids, (Texts{"B", "A"}));
    EXPECT_EQ(host.asked, InCimv2({disksQuery}));
}

TEST(QueryIdeDisks, GivesNoneWhenTheQueryFails) {
    EXPECT_TRUE(QueryIdeDisks(ScriptedHost()).empty());
}

Texts KeptIds(const ScriptedHost& host, bool (*isKept)(std::string_view)) {
    Texts ids;
    for (const auto& [deviceId, row] : QueryControllers(host, isKept)) {
        EXPECT_EQ(TextOrEmpty(*row, "DeviceID"), deviceId);
        ids.push_back(deviceId);
    }
    return ids;
}

TEST(QueryControllers, KeepsTheRowsOfTheRuleInTheirOrder) {
    ScriptedHost host;
    host.Answer(controllersQuery, {Controller(R"(PCI\B&REV_1)"), Controller(channelId),
                                   Without(Controller("x"), "DeviceID"), Controller(ahciId)});
    EXPECT_EQ(KeptIds(host, IsPortController), (Texts{R"(PCI\B&REV_1)", ahciId}));
    EXPECT_EQ(KeptIds(host, IsInitiator), Texts{channelId});
    EXPECT_EQ(host.asked, InCimv2({controllersQuery, controllersQuery}));
}

TEST(QueryControllers, GivesNoneWhenTheQueryFails) {
    EXPECT_TRUE(KeptIds(ScriptedHost(), IsPortController).empty());
}

}  // namespace
}  // namespace qv
