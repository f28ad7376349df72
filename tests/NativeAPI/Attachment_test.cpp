#include "NativeAPI/Attachment.h"

#include <gtest/gtest.h>

#include "source/PropertyReaders.h"
#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

TEST(Attachment, ConnectedIdJoinsTheEncodedIds) {
    const ScriptedRow controller(Controller(ahciId));
    EXPECT_EQ(ConnectedId(channelId, &controller), channelKey + " connected to " + ahciKey);
}

TEST(Attachment, ConnectedIdEndsInABlankWithoutControllerOrItsDeviceId) {
    const ScriptedRow nameless(Without(Controller(ahciId), "DeviceID"));
    EXPECT_EQ(ConnectedId(channelId, nullptr), channelKey + " connected to ");
    EXPECT_EQ(ConnectedId(channelId, &nameless), channelKey + " connected to ");
}

TEST(Attachment, QueryAttachedDisksGivesThePublishedDisksAndWhereTheyAreAttached) {
    ScriptedHost host;
    host.Answer(disksQuery, {Disk(diskId), With(Disk("S"), {{"InterfaceType", "SCSI"}})});
    host.Answer(controllerLinksQuery, {ControllerLink(ahciId, diskId)});
    host.Answer(controllersQuery, {Controller(ahciId)});
    const AttachedDisks attached = QueryAttachedDisks(host);
    ASSERT_EQ(attached.disks.size(), 1U);
    EXPECT_EQ(TextOrEmpty(*attached.disks[0], "PNPDeviceID"), diskId);
    const platform::Row* controller = attached.links.ControllerOfDisk(diskId);
    ASSERT_NE(controller, nullptr);
    EXPECT_EQ(TextOrEmpty(*controller, "DeviceID"), ahciId);
}

TEST(Attachment, QueryAttachedDisksGivesNoRowsForQueriesThatFail) {
    const ScriptedHost host;
    const AttachedDisks attached = QueryAttachedDisks(host);
    EXPECT_TRUE(attached.disks.empty());
    EXPECT_EQ(attached.links.ControllerOfDisk(diskId), nullptr);
    EXPECT_EQ(host.asked.size(), 3U);
}

}  // namespace
}  // namespace qv::test
