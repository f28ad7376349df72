#include "qvsata/capture/Related.h"

#include <gmock/gmock.h>

#include "qvsata/recorded/HostFile.h"
#include "qvsata/recorded/HostText.h"

namespace qv::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TEST(Related, LeavesOutDevicesDriversAndLinksToWhichNoControllerLeads) {
    const service::RecordedHost host =
        service::ReadHostText(R"({"computer": {}, "namespaces": {"n": {
        "Win32_SystemDriver": [{"Name": "storahci"}, {"Name": "webcam"}],
        "Win32_IDEController": [{"DeviceID": "ctrl"}],
        "Win32_PnPEntity": [{"DeviceID": "ctrl"}, {"DeviceID": "cam"}, {"DeviceID": "disk"}],
        "Win32_IDEControllerDevice": [{"Antecedent": "Win32_IDEController.DeviceID=\"ctrl\"",
                                       "Dependent": "Win32_PnPEntity.DeviceID=\"disk\""}],
        "Win32_PnPDevice": [{"SameElement": "Win32_PnPEntity.DeviceID=\"ctrl\"",
                             "SystemElement": "Win32_IDEController.DeviceID=\"ctrl\""},
                            {"SameElement": "Win32_PnPEntity.DeviceID=\"cam\"",
                             "SystemElement": "Win32_USBHub.DeviceID=\"cam\""}],
        "Win32_SystemDriverPNPEntity": [{"Antecedent": "Win32_PnPEntity.DeviceID=\"ctrl\"",
                                         "Dependent": "Win32_SystemDriver.Name=\"storahci\""},
                                        {"Antecedent": "Win32_PnPEntity.DeviceID=\"cam\"",
                                         "Dependent": "Win32_SystemDriver.Name=\"webcam\""}]}}})",
                              "h");
    EXPECT_THAT(service::HostAsText(capture::Related(host)),
                AllOf(HasSubstr(R"({"Name":"storahci"})"), HasSubstr(R"({"DeviceID":"disk"})"),
                      HasSubstr(R"("SameElement":"Win32_PnPEntity.DeviceID=\"ctrl\"")"),
                      Not(HasSubstr("cam"))));
}

TEST(Related, LeavesOutTheSignatureOfADisk) {
    const service::RecordedHost host = service::ReadHostText(
        R"({"computer": {}, "namespaces": {"n": {"Win32_DiskDrive": [{"Signature": 77, "Index": 0}]}}})",
        "h");
    EXPECT_THAT(service::HostAsText(capture::Related(host)), HasSubstr("   {\"Index\":0}\n"));
}

}  // namespace
}  // namespace qv::test
