// The controllers of disks and channels by their links (source/SourceRules).
#include <gtest/gtest.h>

#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

// Returns the caption of the controller; "none" for null.
std::string CaptionOf(const platform::Row* controller) {
    return controller == nullptr ? "none" : TextOrEmpty(*controller, "Caption");
}

struct Links {
    Links(std::vector<Properties> linkRows, std::vector<Properties> controllerRows)
        : controllers(RowsOf(std::move(controllerRows))),
          links(RowsOf(std::move(linkRows)), controllers) {}

    std::string OfDisk(std::string_view id) const { return CaptionOf(links.ControllerOfDisk(id)); }
    std::string OfChannel(std::string_view path) const {
        return CaptionOf(links.ControllerOfChannel(path));
    }

    platform::Rows controllers;
    ControllerLinks links;
};

Properties Named(const std::string& deviceId, const char* caption) {
    return With(Controller(deviceId), {{"Caption", caption}});
}

TEST(ControllerLinks, ControllerOfDiskComparesWithoutBackslashesAndCase) {
    const Links links({ControllerLink(R"(PCI\A)", R"(IDE\DiskX\5&1)")}, {Named(R"(PCI\A)", "A")});
    EXPECT_EQ(links.OfDisk(R"(IDE\DISKX\5&1)"), "A");
    EXPECT_EQ(links.OfDisk(R"(ide\diskx5&1)"), "A");
    EXPECT_EQ(links.OfDisk(R"(IDE\DISKX\5&11)"), "none");
    EXPECT_EQ(links.OfDisk(R"(IDE\DISKX\5&)"), "none");
}

TEST(ControllerLinks, ControllerOfDiskIsOfTheLastLinkThatNamesAController) {
    const std::vector<Properties> controllers{Named(R"(PCI\A)", "A"), Named(R"(PCI\B)", "B")};
    EXPECT_EQ(Links({ControllerLink(R"(PCI\A)", "D"), ControllerLink(R"(PCI\B)", "D")}, controllers)
                  .OfDisk("D"),
              "B");
    EXPECT_EQ(Links({ControllerLink(R"(PCI\A)", "D"), ControllerLink(R"(PCI\C)", "D")}, controllers)
                  .OfDisk("D"),
              "A");
}

TEST(ControllerLinks, ControllerOfDiskIsTheFirstRowWithThePath) {
    const Links links({ControllerLink(R"(PCI\A)", "D")},
                      {Named(R"(PCI\A)", "first"), Named(R"(PCI\A)", "second")});
    EXPECT_EQ(links.OfDisk("D"), "first");
}

TEST(ControllerLinks, ControllerOfDiskTakesThePathWithoutRegardToCase) {
    const Links links({ControllerLink(R"(pci\a)", "D")}, {Named(R"(PCI\A)", "A")});
    EXPECT_EQ(links.OfDisk("D"), "A");
}

TEST(ControllerLinks, ControllerOfDiskPassesOverADependentWithoutKey) {
    const Links links({With(ControllerLink("A", "D"), {{"Dependent", R"(\\SRV\x:Win32_X="D")"}}),
                       With(ControllerLink("A", "D"), {{"Dependent", ".DeviceID="}}),
                       With(ControllerLink("A", "D"), {{"Dependent", std::monostate{}}})},
                      {Named("A", "A")});
    EXPECT_EQ(links.OfDisk("D"), "none");
}

TEST(ControllerLinks, ControllerOfDiskIsNullWithoutRows) {
    EXPECT_EQ(Links({}, {Named("A", "A")}).OfDisk("D"), "none");
    EXPECT_EQ(Links({ControllerLink("A", "D")}, {}).OfDisk("D"), "none");
}

TEST(ControllerLinks, ControllerOfChannelComparesPathsFromTheKeyOn) {
    const Links links({ControllerLink("A", R"(PCIIDE\IDECHANNEL\4)")}, {Named("A", "A")});
    EXPECT_EQ(links.OfChannel(R"(\\OTHER\ns:Win32_IDEController.DeviceID="PCIIDE\\IDECHANNEL\\4")"),
              "A");
}

TEST(ControllerLinks, ControllerOfChannelTakesThePathWithRegardToCase) {
    const Links links({ControllerLink("A", R"(PCIIDE\IDECHANNEL\4a)")}, {Named("A", "A")});
    EXPECT_EQ(links.OfChannel(R"(x.DeviceID="PCIIDE\\IDECHANNEL\\4A")"), "none");
    EXPECT_EQ(links.OfChannel(R"(x.deviceid="PCIIDE\\IDECHANNEL\\4a")"), "none");
}

TEST(ControllerLinks, ControllerOfChannelDoesNotForgiveOtherBackslashes) {
    const Links links({ControllerLink("A", R"(PCIIDE\IDECHANNEL\4)")}, {Named("A", "A")});
    EXPECT_EQ(links.OfChannel(R"(x.DeviceID="PCIIDE\IDECHANNEL\4")"), "none");
}

TEST(ControllerLinks, ControllerOfChannelIsOfTheLastLinkThatNamesAController) {
    const Links links(
        {ControllerLink("A", "C"), ControllerLink("b", "C"), ControllerLink("missing", "C")},
        {Named("A", "A"), Named("B", "B")});
    EXPECT_EQ(links.OfChannel(R"(x.DeviceID="C")"), "B");
}

TEST(ControllerLinks, ControllerOfChannelIsNullForAPathWithoutKey) {
    const Links links({With(ControllerLink("A", "C"), {{"Dependent", ""}})}, {Named("A", "A")});
    EXPECT_EQ(links.OfChannel(""), "none");
}

}  // namespace
}  // namespace qv::test
