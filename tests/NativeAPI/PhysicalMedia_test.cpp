#include "NativeAPI/PhysicalMedia.h"

#include <gtest/gtest.h>

#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

TEST(PhysicalMedia, GivesSerialNumberAndTagOfTheFirstRowOfTheDisk) {
    ScriptedHost host;
    host.Answer(mediaQuery, {Media("other", "A"), Media(drive0, "B"), Media(drive0, "C")});
    const auto media = QueryMediaOfDisk(host, ScriptedRow(Disk(diskId)));
    ASSERT_TRUE(media);
    EXPECT_EQ(media->serialNumber, "B");
    EXPECT_EQ(media->tag, drive0);
    EXPECT_EQ(host.asked, InCimv2({"SELECT * FROM Win32_PhysicalMedia"}));
}

TEST(PhysicalMedia, GivesNothingWithoutARowOfTheDisk) {
    ScriptedHost host;
    host.Answer(mediaQuery, {Media("other", "A")});
    EXPECT_FALSE(QueryMediaOfDisk(host, ScriptedRow(Disk(diskId))));
}

TEST(PhysicalMedia, PassesOverARowWithoutTag) {
    ScriptedHost host;
    host.Answer(mediaQuery,
                {{{"Tag", std::monostate{}}, {"SerialNumber", "A"}}, Media(drive0, "B")});
    const auto media = QueryMediaOfDisk(host, ScriptedRow(Disk(diskId)));
    ASSERT_TRUE(media);
    EXPECT_EQ(media->serialNumber, "B");
}

TEST(PhysicalMedia, GivesNothingWhenTheQueryFails) {
    EXPECT_FALSE(QueryMediaOfDisk(ScriptedHost(), ScriptedRow({})));
}

TEST(PhysicalMedia, EndsTheRequestForADiskWithoutDeviceIdAmongMedia) {
    ScriptedHost host;
    host.Answer(mediaQuery, {Media("other", "A")});
    try {
        QueryMediaOfDisk(host, ScriptedRow({}));
        ADD_FAILURE() << "no error was raised";
    } catch (const RequestError& error) {
        EXPECT_EQ(error.status(), Status::unspecifiedFailure);
    }
}

}  // namespace
}  // namespace qv::test
