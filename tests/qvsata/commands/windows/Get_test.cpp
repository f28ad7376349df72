#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

TEST(Get, FindsAnInstanceInAnyOrderOfItsKeys) {
    const json disk = Ask({"enumerate", "QV_SATADiskDrive"})[1];
    const std::string path =
        "qv_satadiskdrive.SystemName='" + disk["SystemName"].get<std::string>() + "',DeviceID='" +
        disk["DeviceID"].get<std::string>() +
        "',SystemCreationClassName='QV_WinComputerSystem',CreationClassName='QV_SATADiskDrive'";
    EXPECT_EQ(Ask({"get", path}), json::array({disk}));
}

TEST(Get, FindsEveryPublishedInstanceByItsRelativePath) {
    const json links = Ask({"enumerate", "QV_SATAInitiatorTargetLogicalUnitPath"});
    ASSERT_EQ(links.size(), 3U);
    EXPECT_EQ(Ask({"get", links[2]["__RELPATH"]}), json::array({links[2]}));
}

TEST(Get, FindsAnAssociationWithReferencesToAnotherServerName) {
    const json links = Ask({"enumerate", "QV_TSATAProtocolEndpointSATADiskDrive"});
    ASSERT_EQ(links.size(), 3U);
    const std::string path = links[1]["__RELPATH"];
    ASSERT_THAT(path, HasSubstr(R"("\\\\STUDY-DESK\\root)"));
    EXPECT_EQ(Ask({"get", Replaced(path, "STUDY-DESK", "elsewhere")}), json::array({links[1]}));
}

}  // namespace
}  // namespace qv::test
