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

/// A port that finds the row of drive0 itself, among these rows.
class FindingPort : public ScriptedHost {
public:
    explicit FindingPort(std::size_t rowCount) : rowCount_(rowCount) {}

    std::optional<platform::FoundRow> FindRow(std::string_view nameSpace,
                                              std::string_view className, std::string_view property,
                                              std::string_view text) const override {
        sought = std::string(nameSpace).append(":").append(className).append(".").append(property);
        return platform::FoundRow{
            text == drive0 ? std::make_shared<ScriptedRow>(Media(drive0, "B")) : nullptr,
            rowCount_};
    }

    mutable std::string sought;

private:
    std::size_t rowCount_;
};

TEST(PhysicalMedia, LeavesTheSearchToAPortThatFindsRows) {
    const FindingPort port(1);
    const auto media = QueryMediaOfDisk(port, ScriptedRow(Disk(diskId)));
    ASSERT_TRUE(media);
    EXPECT_EQ(media->serialNumber, "B");
    EXPECT_EQ(media->tag, drive0);
    EXPECT_EQ(port.sought, R"(root\CIMv2:Win32_PhysicalMedia.Tag)");
    EXPECT_TRUE(port.asked.empty());
}

TEST(PhysicalMedia, EndsTheRequestAsWellWhereThePortFindsRows) {
    EXPECT_FALSE(QueryMediaOfDisk(FindingPort(0), ScriptedRow({})));
    EXPECT_THROW(QueryMediaOfDisk(FindingPort(1), ScriptedRow({})), RequestError);
}

}  // namespace
}  // namespace qv::test
