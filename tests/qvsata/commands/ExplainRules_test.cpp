// What `explain` says about a host that breaks exactly one rule, for each rule.
#include <gmock/gmock.h>

#include <fstream>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

// A host with one row of each kind: a disk on a channel of a controller. Nothing is left out.
constexpr const char* plainHost = R"json({
  "computer": {"dnsFullyQualified": "den.example.org", "dnsHostname": "den", "netbios": "DEN"},
  "namespaces": {
    "root\\CIMv2": {
      "Win32_DiskDrive": [
        {"DeviceID": "\\\\.\\PHYSICALDRIVE0", "PNPDeviceID": "IDE\\DISKX\\5&1", "Index": 0,
         "InterfaceType": "IDE", "Model": "Disk X", "Status": "OK"}
      ],
      "Win32_PhysicalMedia": [{"Tag": "\\\\.\\PHYSICALDRIVE0", "SerialNumber": "SN1"}],
      "Win32_IDEController": [
        {"DeviceID": "PCI\\VEN_1&DEV_2&REV_03\\1", "PNPDeviceID": "PCI\\VEN_1&DEV_2&REV_03\\1", "Name": "C"},
        {"DeviceID": "PCIIDE\\IDECHANNEL\\4", "PNPDeviceID": "PCIIDE\\IDECHANNEL\\4", "Name": "P"}
      ],
      "Win32_IDEControllerDevice": [
        {"Antecedent": "\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCI\\\\VEN_1&DEV_2&REV_03\\\\1\"",
         "Dependent": "\\\\DEN\\root\\CIMv2:Win32_PnPEntity.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\""},
        {"Antecedent": "\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\"",
         "Dependent": "\\\\DEN\\root\\CIMv2:Win32_PnPEntity.DeviceID=\"IDE\\\\DISKX\\\\5&1\""}
      ],
      "Win32_DiskDriveToDiskPartition": [
        {"Antecedent": "\\\\DEN\\root\\CIMv2:Win32_DiskDrive.DeviceID=\"\\\\\\\\.\\\\PHYSICALDRIVE0\"",
         "Dependent": "\\\\DEN\\root\\CIMv2:Win32_DiskPartition.DeviceID=\"Disk #0, Partition #0\""}
      ],
      "Win32_DiskPartition": [{"DeviceID": "Disk #0, Partition #0"}],
      "Win32_PnPEntity": [{"DeviceID": "PCI\\VEN_1&DEV_2&REV_03\\1"}, {"DeviceID": "PCIIDE\\IDECHANNEL\\4"}],
      "Win32_SystemDriver": [{"Name": "msahci"}, {"Name": "vendor"}],
      "Win32_PnPDevice": [
        {"SameElement": "\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCI\\\\VEN_1&DEV_2&REV_03\\\\1\"",
         "SystemElement": "\\\\DEN\\root\\CIMv2:Win32_PnPEntity.DeviceID=\"PCI\\\\VEN_1&DEV_2&REV_03\\\\1\""},
        {"SameElement": "\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\"",
         "SystemElement": "\\\\DEN\\root\\CIMv2:Win32_PnPEntity.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\""}
      ],
      "Win32_SystemDriverPNPEntity": [
        {"Antecedent": "\\\\DEN\\root\\CIMv2:Win32_PnPEntity.DeviceID=\"PCI\\\\VEN_1&DEV_2&REV_03\\\\1\"",
         "Dependent": "\\\\DEN\\root\\CIMv2:Win32_SystemDriver.Name=\"msahci\""}
      ]
    },
    "root\\wmi": {
      "MSStorageDriver_FailurePredictStatus": [
        {"InstanceName": "IDE\\DISKX\\5&1_0", "PredictFailure": false}
      ]
    }
  }
})json";

/// A change of the plain host: a JSON patch whose paths begin with @ for the classes of
/// root\CIMv2; and what is said then.
struct Broken {
    const char* name;
    const char* patch;
    const char* sentence;
    int exitCode = 0;
};

void PrintTo(const Broken& broken, std::ostream* out) {
    *out << broken.name;
}

/// Explains a recording of its own for each test.
class ExplainRulesTest : public testing::TestWithParam<Broken> {
protected:
    Ending Explain(std::string patch, const std::vector<std::string>& arguments = {}) const {
        for (auto mark = patch.find('@'); mark != std::string::npos; mark = patch.find('@')) {
            patch.replace(mark, 1, R"(/namespaces/root\\CIMv2/)");
        }
        std::ofstream(file_.Path()) << json::parse(plainHost).patch(json::parse(patch));
        std::vector<std::string> command{"explain"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        command.insert(command.end(),
                       {"--host", file_.Path().string(), "--mof", QV_SOURCE_DIR "/mof"});
        return RunHere(command);
    }

private:
    const TemporaryFile file_;
};

TEST_P(ExplainRulesTest, SaysWhichRuleDecided) {
    const Ending run = Explain(GetParam().patch);
    EXPECT_EQ(run.exitCode, GetParam().exitCode);
    EXPECT_THAT(run.output, HasSubstr(GetParam().sentence));
}

TEST_P(ExplainRulesTest, SaysItForThatHostOnly) {
    EXPECT_THAT(Explain("[]").output, Not(HasSubstr(GetParam().sentence)));
}

#define QV_FIRST_DRIVE R"("\\\\.\\PHYSICALDRIVE0")"
#define QV_LINK_TO(dependent)                                                                               \
    R"({"Antecedent": "\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\"", )" \
    R"("Dependent": "\\\\DEN\\root\\CIMv2:Win32_PnPEntity.DeviceID=\")" dependent R"(\""})"
#define QV_CONTROLLER_HAS_DISK                                                                                   \
    R"({"Antecedent": "\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCI\\\\VEN_1&DEV_2&REV_03\\\\1\"", )" \
    R"("Dependent": "\\\\DEN\\root\\CIMv2:Win32_PnPEntity.DeviceID=\"IDE\\\\DISKX\\\\5&1\""})"

const auto named = [](const auto& test) { return std::string(test.param.name); };

INSTANTIATE_TEST_SUITE_P(
    Disks, ExplainRulesTest,
    testing::Values(
        Broken{
            "Scsi",
            R"([{"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"SCSI"}])",
            R"(not published: InterfaceType is "SCSI" and only "IDE" is published; usual for NVMe,)"},
        Broken{
            "NoInterfaceType", R"([{"op":"remove","path":"@Win32_DiskDrive/0/InterfaceType"}])",
            R"(not published: InterfaceType is "" and only "IDE" is published; the system reports none)"},
        Broken{"NoDeviceId", R"([{"op":"remove","path":"@Win32_DiskDrive/0/DeviceID"}])",
               "    requests for disks, their firmware and their packages fail: the DeviceID of #0 "
               "Disk X is not a text\n"},
        Broken{"MediaOfAFailedRequest",
               R"([{"op":"copy","from":"@Win32_DiskDrive/0","path":"@Win32_DiskDrive/-"},
                   {"op":"remove","path":"@Win32_DiskDrive/1/DeviceID"}])",
               "PHYSICALDRIVE0: not used: requests for disks, their firmware and their packages "
               "fail: the DeviceID of #0 Disk X is not a text\n"},
        Broken{
            "NoPrediction",
            R"([{"op":"remove","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0"}])",
            "    raises no events: no failure-prediction row names it\n"},
        Broken{
            "OnController",
            R"([{"op":"replace","path":"@Win32_IDEControllerDevice/1","value":)" QV_CONTROLLER_HAS_DISK
            "}]",
            "    joins no port: it hangs directly on its controller C "
            "(PCI\\VEN_1&DEV_2&REV_03\\1), there is no channel row "
            "between them (usual with the inbox AHCI driver of Windows 8 and later)\n"
            "      no QV_SATAInitiatorTargetLogicalUnitPath\n"},
        Broken{"NoLink", R"([{"op":"remove","path":"@Win32_IDEControllerDevice/1"}])",
               "    joins no controller and no port: no Win32_IDEControllerDevice row attaches it "
               "to a Win32_IDEController row\n"
               "      no QV_TSATAProtocolEndpointSATADiskDrive\n      no "
               "QV_SATAInitiatorTargetLogicalUnitPath\n"},
        Broken{"NoMedia", R"([{"op":"remove","path":"@Win32_PhysicalMedia/0"}])",
               "published without a serial number: no Win32_PhysicalMedia row has the Tag "
               "\"\\\\.\\PHYSICALDRIVE0\"\n"},
        Broken{"EmptySerialNumber",
               R"([{"op":"replace","path":"@Win32_PhysicalMedia/0/SerialNumber","value":""}])",
               "published without a serial number: SerialNumber of its Win32_PhysicalMedia row is "
               "empty\n"},
        Broken{"NoPartition", R"([{"op":"remove","path":"@Win32_DiskDriveToDiskPartition/0"}])",
               "its storage extent shows no partition: no Win32_DiskDriveToDiskPartition row joins "
               "it with one\n"}),
    named);

INSTANTIATE_TEST_SUITE_P(
    RowsOfDisks, ExplainRulesTest,
    testing::Values(
        Broken{
            "LaterMedia",
            R"([{"op":"add","path":"@Win32_PhysicalMedia/-","value":{"Tag":)" QV_FIRST_DRIVE "}}]",
            "not used: an earlier row has the same Tag, and the first row counts for #0 Disk X\n"},
        Broken{"MediaOfNone",
               R"([{"op":"add","path":"@Win32_PhysicalMedia/-","value":{"Tag":"CDROM0"}}])",
               "CDROM0: not used: its Tag \"CDROM0\" is the DeviceID of no disk\n"},
        Broken{"MediaOfUnpublished",
               R"([{"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"USB"}])",
               "not used: its Tag is the DeviceID of #0 Disk X, which is not published\n"},
        Broken{"PartitionOfUnpublished",
               R"([{"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"USB"}])",
               "Disk #0, Partition #0: not used: its disk #0 Disk X is not published\n"},
        Broken{"PartitionOfNoDisk",
               R"([{"op":"remove","path":"@Win32_DiskDriveToDiskPartition/0"}])",
               "Disk #0, Partition #0: not used: no Win32_DiskDriveToDiskPartition row joins it "
               "with a disk\n"},
        Broken{
            "EarlierPartition",
            R"([{"op":"copy","from":"@Win32_DiskDriveToDiskPartition/0","path":"@Win32_DiskDriveToDiskPartition/-"},
               {"op":"add","path":"@Win32_DiskPartition/-","value":{"DeviceID":"Partition #1"}},
               {"op":"replace","path":"@Win32_DiskDriveToDiskPartition/1/Dependent","value":"Win32_DiskPartition.DeviceID=\"Partition #1\""}])",
            "Disk #0, Partition #0: not used: the storage extent of #0 Disk X shows one partition, "
            "the last, and this is an earlier one\n"},
        Broken{
            "EarlierPartitionLink",
            R"([{"op":"copy","from":"@Win32_DiskDriveToDiskPartition/0","path":"@Win32_DiskDriveToDiskPartition/-"},
               {"op":"add","path":"@Win32_DiskPartition/-","value":{"DeviceID":"Partition #1"}},
               {"op":"replace","path":"@Win32_DiskDriveToDiskPartition/1/Dependent","value":"Win32_DiskPartition.DeviceID=\"Partition #1\""}])",
            "PHYSICALDRIVE0 - Disk #0, Partition #0: not used: the storage extent of #0 Disk X "
            "shows "
            "one partition, the last, and this joins an earlier one\n"},
        Broken{
            "PartitionLinkOfNothing", R"([{"op":"remove","path":"@Win32_DiskPartition/0"}])",
            R"(not used: its Antecedent "\\.\PHYSICALDRIVE0" names no disk, or its Dependent "Disk #0, Partition #0" no partition)"},
        Broken{"PartitionLinkOfUnpublished",
               R"([{"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"USB"}])",
               "PHYSICALDRIVE0 - Disk #0, Partition #0: not used: its disk #0 Disk X is not "
               "published\n"},
        Broken{
            "PredictionOfNone",
            R"([{"op":"replace","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0/InstanceName","value":"IDE\\Y"}])",
            "IDE\\Y: not used: its InstanceName \"IDE\\Y\" contains the ID of no disk\n"},
        Broken{
            "Failure",
            R"([{"op":"replace","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0/PredictFailure","value":true}])",
            "    its failure is predicted: PredictFailure of failure-prediction row "
            "IDE\\DISKX\\5&1_0 is "
            "TRUE\n"},
        Broken{
            "FailureOfADisk",
            R"([{"op":"replace","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0/PredictFailure","value":true}])",
            "used: #0 Disk X raises events because of it, and its failure is predicted "
            "(PredictFailure is TRUE)\n"},
        Broken{
            "FailureOfAnUnpublishedDisk",
            R"([{"op":"replace","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0/PredictFailure","value":true},
                   {"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"USB"}])",
            "only \"IDE\" is published; usual for USB enclosures and sticks; what can be done: "
            "attach a SATA disk to a SATA port\n    its failure is predicted: "},
        Broken{
            "FailureOfUnpublished",
            R"([{"op":"replace","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0/PredictFailure","value":true},
                   {"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"USB"}])",
            "not used: it predicts a failure of #0 Disk X, which is not published\n"},
        Broken{
            "FailureOfNone",
            R"([{"op":"replace","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0/PredictFailure","value":true},
                   {"op":"replace","path":"/namespaces/root\\wmi/MSStorageDriver_FailurePredictStatus/0/InstanceName","value":"IDE\\Y"}])",
            "not used: it predicts a failure, and its InstanceName \"IDE\\Y\" contains the ID of "
            "no disk\n"},
        Broken{"PredictionOfUnpublished",
               R"([{"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"USB"}])",
               "not used: it names #0 Disk X, which is not published\n"}),
    named);

INSTANTIATE_TEST_SUITE_P(
    Controllers, ExplainRulesTest,
    testing::Values(
        Broken{
            "NoRevision",
            R"([{"op":"replace","path":"@Win32_IDEController/0/DeviceID","value":"PCI\\1"}])",
            R"(not published: DeviceID "PCI\1" has no "&REV_" as PCI controllers have, and PNPDeviceID)"},
        Broken{"NoChannel", R"([{"op":"remove","path":"@Win32_IDEControllerDevice/0"}])",
               "    has no ports: no channel row is attached to it\n      no "
               "QV_SATAPortControllerSATALogicalPort\n"},
        Broken{"ChannelWithoutController",
               R"([{"op":"remove","path":"@Win32_IDEControllerDevice/0"}])",
               "    joins no controller: no Win32_IDEControllerDevice row attaches it to a "
               "Win32_IDEController row\n"
               "      no QV_SATAPortControllerSATALogicalPort\n"},
        Broken{"ChannelOnOther",
               R"([{"op":"replace","path":"@Win32_IDEController/0/DeviceID","value":"PCI\\1"},
               {"op":"replace","path":"@Win32_IDEControllerDevice/0/Antecedent","value":"\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCI\\\\1\""}])",
               "    joins no controller: it hangs on C (PCI\\1), which is not published as one\n"},
        Broken{"DiskOnOther",
               R"([{"op":"replace","path":"@Win32_IDEController/1/DeviceID","value":"PCI\\1"},
               {"op":"replace","path":"@Win32_IDEControllerDevice/1/Antecedent","value":"\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"PCI\\\\1\""}])",
               "    joins no port: it hangs on P (PCI\\1), which is neither a channel nor a "
               "published controller\n"},
        Broken{
            "ChannelWithRevision",
            R"([{"op":"replace","path":"@Win32_IDEController/1/DeviceID","value":"IDECHANNEL&REV_1"},
               {"op":"replace","path":"@Win32_IDEControllerDevice/1/Antecedent","value":"\\\\DEN\\root\\CIMv2:Win32_IDEController.DeviceID=\"IDECHANNEL&REV_1\""}])",
            "    joins no port: the DeviceID of its channel P (IDECHANNEL&REV_1) has \"&REV_\", so "
            "it has no initiator endpoint\n"},
        Broken{"PortWithoutInitiator",
               R"([{"op":"replace","path":"@Win32_IDEController/1/DeviceID","value":"PCI\\1"}])",
               "    has no initiator endpoint: DeviceID \"PCI\\1\" has \"&REV_\" or no "
               "\"IDECHANNEL\"\n"
               "      no QV_SATALogicalPortISATAProtocolEndpoint\n"},
        Broken{"ChannelWithoutDisk", R"([{"op":"remove","path":"@Win32_IDEControllerDevice/1"}])",
               "    leads to no disk: no published disk is attached to it\n      no "
               "QV_SATAInitiatorTargetLogicalUnitPath\n"},
        Broken{"NoDriver", R"([{"op":"remove","path":"@Win32_SystemDriverPNPEntity/0"}])",
               "    has no driver, firmware and BIOS: no Win32_SystemDriver row serves its "
               "plug-and-play device\n"
               "      no QV_SATAPortControllerDriverSATAPortController\n      no "
               "QV_SATAPortControllerFWSATAPortController\n"
               "      no QV_SATAPortControllerBIOSSATAPortController\n"},
        Broken{
            "ForeignDriver",
            R"([{"op":"replace","path":"@Win32_SystemDriverPNPEntity/0/Dependent","value":"Win32_SystemDriver.Name=\"vendor\""}])",
            "    has no driver, firmware and BIOS: its driver \"vendor\" is none of msahci, "
            "pciide, pciidex, atapi\n"},
        Broken{
            "ForeignDriverItself",
            R"([{"op":"replace","path":"@Win32_SystemDriverPNPEntity/0/Dependent","value":"Win32_SystemDriver.Name=\"vendor\""}])",
            "\"vendor\" is none of msahci, pciide, pciidex, atapi\n"},
        Broken{"LaterOfFamily", R"([{"op":"add","path":"@Win32_SystemDriverPNPEntity/-","value":{
               "Antecedent":"Win32_PnPEntity.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\"","Dependent":"Win32_SystemDriver.Name=\"msahci\""}}])",
               "not published: only the first driver of its family is published, \"msahci\" for C "
               "(PCI\\VEN_1&DEV_2&REV_03\\1)\n"},
        Broken{"LaterController", R"([{"op":"add","path":"@Win32_SystemDriverPNPEntity/-","value":{
               "Antecedent":"Win32_PnPEntity.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\"","Dependent":"Win32_SystemDriver.Name=\"msahci\""}},
               {"op":"move","from":"@Win32_IDEController/1","path":"@Win32_IDEController/0"}])",
               "    has no driver, firmware and BIOS: the family of its driver \"msahci\" is "
               "published for the first controller only, P (PCIIDE\\IDECHANNEL\\4)\n"},
        Broken{
            "DriverOfChannel",
            R"([{"op":"replace","path":"@Win32_SystemDriverPNPEntity/0/Antecedent","value":"Win32_PnPEntity.DeviceID=\"PCIIDE\\\\IDECHANNEL\\\\4\""}])",
            "    joins no controller: P (PCIIDE\\IDECHANNEL\\4) is not published as one\n"}),
    named);

INSTANTIATE_TEST_SUITE_P(
    Links, ExplainRulesTest,
    testing::Values(
        Broken{
            "NoController",
            R"([{"op":"replace","path":"@Win32_IDEControllerDevice/1/Antecedent","value":"C.DeviceID=\"PCI\\\\9\""}])",
            "not used: its Antecedent \"PCI\\9\" names no Win32_IDEController row\n"},
        Broken{"OtherDevice",
               R"([{"op":"add","path":"@Win32_IDEControllerDevice/-","value":)" QV_LINK_TO(
                   "CDROM") "}]",
               "not used: its Dependent \"CDROM\" is neither a disk nor a channel\n"},
        Broken{"UnpublishedDisk",
               R"([{"op":"replace","path":"@Win32_DiskDrive/0/InterfaceType","value":"USB"}])",
               "not used: its Dependent is #0 Disk X, which is not published\n"},
        Broken{
            "Replaced",
            R"([{"op":"add","path":"@Win32_IDEControllerDevice/-","value":)" QV_CONTROLLER_HAS_DISK
            "}]",
            "not used: a later row attaches #0 Disk X to C (PCI\\VEN_1&DEV_2&REV_03\\1), and the "
            "last row counts\n"}),
    named);

#define QV_FAILS(place) R"([{"op":"replace","path":")" place R"(","value":{"fails":true}}])"

INSTANTIATE_TEST_SUITE_P(
    UnreadSources, ExplainRulesTest,
    testing::Values(
        Broken{"Disks", QV_FAILS("@Win32_DiskDrive"), "Win32_DiskDrive\n  not readable\n", 3},
        Broken{"MediaWithoutDisks", QV_FAILS("@Win32_DiskDrive"),
               "PHYSICALDRIVE0: not readable: Win32_DiskDrive could not be read\n", 3},
        Broken{"Keys", QV_FAILS("@Win32_DiskDrive"),
               "  not readable: Win32_DiskDrive could not be read\n", 3},
        Broken{
            "Predictions", QV_FAILS("/namespaces/root\\\\wmi/MSStorageDriver_FailurePredictStatus"),
            "    events not readable: MSStorageDriver_FailurePredictStatus could not be read\n", 3},
        Broken{
            "Links", QV_FAILS("@Win32_IDEControllerDevice"),
            "    controller and port not readable: Win32_IDEControllerDevice could not be read\n",
            3},
        Broken{"Channels", QV_FAILS("@Win32_IDEControllerDevice"),
               "    ports not readable: Win32_IDEControllerDevice could not be read\n", 3},
        Broken{"DisksOfChannel", QV_FAILS("@Win32_IDEControllerDevice"),
               "    disks not readable: Win32_IDEControllerDevice could not be read\n", 3},
        Broken{"Controllers", QV_FAILS("@Win32_IDEController"),
               "    controller and port not readable: Win32_IDEController could not be read\n", 3},
        Broken{"LinksWithoutControllers", QV_FAILS("@Win32_IDEController"),
               "IDE\\DISKX\\5&1: not readable: Win32_IDEController could not be read\n", 3},
        Broken{"Media", QV_FAILS("@Win32_PhysicalMedia"),
               "    serial number not readable: Win32_PhysicalMedia could not be read\n", 3},
        Broken{"Partitions", QV_FAILS("@Win32_DiskPartition"),
               "    partitions not readable: Win32_DiskPartition could not be read\n", 3},
        Broken{"PartitionLinks", QV_FAILS("@Win32_DiskDriveToDiskPartition"),
               "Disk #0, Partition #0: not readable: Win32_DiskDriveToDiskPartition could not be "
               "read\n",
               3},
        Broken{"Drivers", QV_FAILS("@Win32_SystemDriverPNPEntity"),
               "    driver, firmware and BIOS not readable: Win32_SystemDriverPNPEntity could not "
               "be read\n",
               3}),
    named);

#define QV_SECOND_DISK(id, serialNumber)                                                               \
    R"([{"op":"copy","from":"@Win32_DiskDrive/0","path":"@Win32_DiskDrive/-"},)"                       \
    R"({"op":"replace","path":"@Win32_DiskDrive/1/Index","value":1},)"                                 \
    R"({"op":"replace","path":"@Win32_DiskDrive/1/DeviceID","value":"D1"},)"                           \
    R"({"op":"replace","path":"@Win32_DiskDrive/1/PNPDeviceID","value":")" id R"("},)"                 \
    R"({"op":"add","path":"@Win32_PhysicalMedia/-","value":{"Tag":"D1","SerialNumber":")" serialNumber \
    R"("}}])"

INSTANTIATE_TEST_SUITE_P(
    Keys, ExplainRulesTest,
    testing::Values(
        Broken{"EqualIds", QV_SECOND_DISK(R"(IDE\\DISKX\\5&1)", "SN2"),
               "  disks #0 and #1 have one plug-and-play ID: their instances have the same keys\n"},
        Broken{"IdInId", QV_SECOND_DISK(R"(IDE\\DISKX\\5&12)", "SN2"),
               "  the plug-and-play ID of disk #0 is part of that of disk #1: associations of one "
               "may name the other, too\n"},
        Broken{"EqualSerialNumbers", QV_SECOND_DISK(R"(IDE\\DISKY\\6)", "SN1"),
               "  disks #0 and #1 are published with one serial number: SN1\n"},
        Broken{"EmptySerialNumber", QV_SECOND_DISK(R"(IDE\\DISKY\\6)", ""),
               "  disk #1 is published without a serial number\n"}),
    named);

TEST_F(ExplainRulesTest, PlainHostLeavesNothingOut) {
    const Ending run = Explain("[]");
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, Not(HasSubstr("not published")));
    EXPECT_THAT(run.output, Not(HasSubstr("not used")));
    EXPECT_THAT(run.output, Not(HasSubstr("      no QV_")));
}

TEST_F(ExplainRulesTest, DiskIsFoundByPartOfItsTexts) {
    constexpr const char* disks = QV_SECOND_DISK(R"(IDE\\DISKY\\6)", "SN2");
    EXPECT_THAT(Explain(disks, {"1"}).output, HasSubstr("  #1 Disk X (IDE\\DISKY\\6): published"));
    EXPECT_THAT(Explain(disks, {"sn2"}).output,
                HasSubstr("  #1 Disk X (IDE\\DISKY\\6): published"));
    EXPECT_THAT(Explain(disks, {"disky"}).output,
                HasSubstr("  #1 Disk X (IDE\\DISKY\\6): published"));
    EXPECT_THAT(Explain(disks, {"1"}).output, Not(HasSubstr("  #0 Disk X (")));
}

TEST_F(ExplainRulesTest, AmbiguousDiskListsTheFittingOnes) {
    const Ending run = Explain(QV_SECOND_DISK(R"(IDE\\DISKY\\6)", "SN2"), {"Disk X"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, HasSubstr("    #0 Disk X, serial number SN1, ID IDE\\DISKX\\5&1\n"));
    EXPECT_THAT(run.errors, HasSubstr("    #1 Disk X, serial number SN2, ID IDE\\DISKY\\6\n"));
    EXPECT_THAT(run.errors, HasSubstr("qvsata: 'Disk X' fits several disks\n"));
}

}  // namespace
}  // namespace qv::test
