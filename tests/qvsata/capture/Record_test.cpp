#include "qvsata/capture/Record.h"

#include <gmock/gmock.h>

#include <memory>

#include "qvsata/recorded/HostFile.h"
#include "qvsata/recorded/HostText.h"
#include "qvsata/service/RecordedMachine.h"

namespace qv::test {
namespace {

using service::RecordedHost;
using testing::HasSubstr;
using testing::Not;

/// Returns what is recorded of a machine that is given in JSON.
std::string Recording(const std::string& namespaces) {
    const auto machine = std::make_shared<const RecordedHost>(service::ReadHostText(
        R"({"computer": {"netbios": "DEN"}, "system": {"osVersion": "6.1.7601", "codePage": 1251},
            "namespaces": )" +
            namespaces + "}",
        "h"));
    return service::HostAsText(capture::Record(ConnectRecorded(machine), machine->WithoutRows()));
}

/// The same with rows of the disk class only.
std::string OfDisks(const std::string& rows) {
    return Recording(R"({"root\\CIMv2": {"Win32_DiskDrive": )" + rows + "}}");
}

TEST(Record, KeepsEachKindOfValue) {
    const std::string row =
        R"({"DeviceID":"a","N":-7,"B":true,"S":"18446744073709551615","T":"20240229120000.000000+060",)"
        R"("A":[1,-2],"E":[],"L":["x","é\"\\"],"Z":null})";
    EXPECT_THAT(OfDisks("[" + row + "]"), HasSubstr("\n   " + row + "\n"));
}

TEST(Record, KeepsNamesAndSystem) {
    EXPECT_THAT(OfDisks("[]"),
                testing::AllOf(HasSubstr(R"("computer": {"server":"DEN","netbios":"DEN"})"),
                               HasSubstr(R"("system": {"osVersion":"6.1.7601","codePage":1251})")));
}

TEST(Record, KeepsTheStatusOfAFailedClass) {
    EXPECT_THAT(OfDisks(R"({"fails": "WBEM_E_ACCESS_DENIED"})"),
                HasSubstr(R"("Win32_DiskDrive": {"fails":"WBEM_E_ACCESS_DENIED"})"));
    EXPECT_THAT(OfDisks(R"({"fails": "0x80070002"})"),
                HasSubstr(R"("Win32_DiskDrive": {"fails":"0x80070002"})"));
}

TEST(Record, KeepsAnUnknownClassAsFailing) {
    EXPECT_THAT(OfDisks("[]"),
                HasSubstr(R"("Win32_PhysicalMedia": {"fails":"WBEM_E_INVALID_CLASS"})"));
}

TEST(Record, LeavesOutANamespaceThatTheMachineLacks) {
    EXPECT_THAT(OfDisks("[]"), Not(HasSubstr(R"(root\\wmi)")));
}

TEST(Record, KeepsTheStatusOfARefusedNamespace) {
    const service::Connector refused = [](std::string_view) {
        return service::Connection{Status{0x80041003}, nullptr};
    };
    EXPECT_THAT(
        service::HostAsText(capture::Record(refused, RecordedHost())),
        HasSubstr(R"("MSStorageDriver_FailurePredictStatus": {"fails":"WBEM_E_ACCESS_DENIED"})"));
}

TEST(Record, KeepsAStatedSystemProperty) {
    EXPECT_THAT(OfDisks(R"([{"DeviceID": "a", "__RELPATH": "X.K=1"}])"),
                HasSubstr(R"({"DeviceID":"a","__RELPATH":"X.K=1"})"));
}

TEST(Record, LeavesOutASystemPropertyThatIsDerived) {
    EXPECT_THAT(OfDisks(R"([{"DeviceID": "a", "__RELPATH": "WIN32_DiskDrive.DeviceID=\"a\""}])"),
                HasSubstr("\n   {\"DeviceID\":\"a\"}\n"));
}

}  // namespace
}  // namespace qv::test
