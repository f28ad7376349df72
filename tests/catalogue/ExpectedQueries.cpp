#include "tests/catalogue/ExpectedQueries.h"

#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

using Queries = std::vector<std::string>;

const std::string disks = R"(root\CIMv2: SELECT * FROM Win32_DiskDrive)";
const std::string media = R"(root\CIMv2: SELECT * FROM Win32_PhysicalMedia)";
const std::string partitionLinks = R"(root\CIMv2: SELECT * FROM Win32_DiskDriveToDiskPartition)";
const std::string partitions = R"(root\CIMv2: SELECT * FROM Win32_DiskPartition)";
const std::string controllers = R"(root\CIMv2: SELECT * FROM Win32_IDEController)";
const std::string deviceLinks = R"(root\CIMv2: SELECT * FROM Win32_IDEControllerDevice)";
const std::string publishedDisks = R"(root\QVQ: SELECT * FROM QV_SATADiskDrive)";

const Queries ofSoftware{
    controllers,
    R"(root\CIMv2: ASSOCIATORS OF {Win32_IDEController.DeviceID="PCI\\VEN_8086&DEV_29&REV_02\\3"} )"
    "where assocclass=Win32_PnPDevice",
    R"(root\CIMv2: ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCI\\VEN_8086&DEV_29&REV_02\\3"} )"
    "where assocclass=Win32_SystemDriverPNPEntity",
    R"(root\CIMv2: ASSOCIATORS OF {Win32_IDEController.DeviceID="PCIIDE\\IDECHANNEL\\4"} )"
    "where assocclass=Win32_PnPDevice",
    R"(root\CIMv2: ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCIIDE\\IDECHANNEL\\4"} )"
    "where assocclass=Win32_SystemDriverPNPEntity"};

using Failures = std::vector<ExpectedFailure>;

const ExpectedFailure nothing{false};
const ExpectedFailure unchanged{true};

const std::set<std::string> partitionProperties{
    "Caption",          "Description",     "Name", "BlockSize", "Size", "Bootable", "BootPartition",
    "PrimaryPartition", "ConsumableBlocks"};
const std::map<std::string, std::string> noPosition{
    {"PhysicalPosition", ""},
    {"Description", "Standard ATA Disk Drive at ,"},
    {"ElementName", "Standard ATA Disk Drive at ,"}};

// Most classes run the same queries whatever is requested.
ExpectedQueries Always(const char* className, const std::string& keys, const Queries& queries,
                       const Failures& failures) {
    return {className, keys, queries, queries, queries, failures};
}

// The classes with a serial number query the media of each instance that is filled.
ExpectedQueries WithMedia(const char* className, const std::string& keys,
                          const std::set<std::string>& ofMedia) {
    return {className, keys,           {disks, media, media},
            {disks},   {disks, media}, {nothing, ExpectedFailure{true, ofMedia}}};
}

// Returns the keys of the host and the class, in the order of most classes.
std::string OnHost(const std::string& className) {
    return R"(SystemName="host.example.org",CreationClassName=")" + className +
           R"(",SystemCreationClassName="QV_WinComputerSystem")";
}

ExpectedQueries SoftwareQueries(const char* className) {
    return Always(
        className,
        R"(InstanceID="QV:)" + std::string(className) + R"(:PCI&VEN_8086&DEV_29&REV_02&3")",
        ofSoftware, {nothing, nothing, nothing, unchanged});
}

}  // namespace

const std::vector<ExpectedQueries>& QueriesOfInstanceClasses() {
    static const std::vector<ExpectedQueries> table{
        Always("QV_SATAPortController",
               OnHost("QV_SATAPortController") + R"(,DeviceID="PCI&VEN_8086&DEV_29&REV_02&3")",
               {controllers}, {nothing}),
        WithMedia("QV_SATADiskDrive", R"(DeviceID="IDE&B&1",)" + OnHost("QV_SATADiskDrive"),
                  {"SerialNumber"}),
        Always("QV_SATAStorageExtent", OnHost("QV_SATAStorageExtent") + R"(,DeviceID="IDE&B&1")",
               {disks, partitionLinks, partitions},
               {nothing, ExpectedFailure{true, partitionProperties},
                ExpectedFailure{true, partitionProperties}}),
        WithMedia("QV_SATADiskDriveFW", R"(InstanceID="IDE&B&1")", {"SerialNumber"}),
        Always("QV_SATAPortControllerPhysicalPackage",
               R"(CreationClassName="QV_SATAPortControllerPhysicalPackage",)"
               R"(Tag="PCI&VEN_8086&DEV_29&REV_02&3")",
               {controllers}, {nothing}),
        WithMedia("QV_SATADiskPhysicalPackage",
                  R"(CreationClassName="QV_SATADiskPhysicalPackage",Tag="IDE&B&1")",
                  {"SerialNumber", "Name"}),
        Always("QV_SATAStorageCollection",
               R"(InstanceID="host.example.org QV:QV_SATAStorageCollection")", {publishedDisks},
               {nothing}),
        Always("QV_SATADiskLocation", R"(Name="IDE&B&1",PhysicalPosition="the caption")",
               {disks, deviceLinks, controllers},
               {nothing, ExpectedFailure{true, {}, noPosition},
                ExpectedFailure{true, {}, noPosition}}),
        Always(
            "QV_SATAControllerLocation",
            R"(Name="PCI&VEN_8086&DEV_29&REV_02&3",PhysicalPosition="the caption with Device ID: 29")",
            {controllers}, {nothing}),
        Always("QV_SATAPortControllerProduct",
               R"(Name="PCI&VEN_8086&DEV_29&REV_02&3",Vendor="the maker",)"
               R"(IdentifyingNumber="the caption with Revision number: 02",Version="02")",
               {controllers}, {nothing}),
        Always("QV_SATALogicalPort",
               R"(DeviceID="PCIIDE&IDECHANNEL&4 connected to PCI&VEN_8086&DEV_29&REV_02&3",)" +
                   OnHost("QV_SATALogicalPort"),
               {controllers, controllers, deviceLinks},
               {nothing, nothing,
                ExpectedFailure{true, {}, {{"DeviceID", channelKey + " connected to "}}}}),
        Always("QV_ISATAProtocolEndpoint",
               R"(SystemName="host.example.org",SystemCreationClassName="QV_WinComputerSystem",)"
               R"(CreationClassName="QV_ISATAProtocolEndpoint",Name="PCIIDE&IDECHANNEL&4")",
               {controllers}, {nothing}),
        Always(
            "QV_TSATAProtocolEndpoint",
            R"(Name="IDE&B&1 connected to PCI&VEN_8086&DEV_29&REV_02&3",SystemName="host.example.org",)"
            R"(SystemCreationClassName="QV_WinComputerSystem",)"
            R"(CreationClassName="QV_TSATAProtocolEndpoint")",
            {disks, deviceLinks, controllers},
            {nothing, ExpectedFailure{true, {"Name"}}, ExpectedFailure{true, {"Name"}}}),
        SoftwareQueries("QV_SATAPortControllerDriver"),
        SoftwareQueries("QV_SATAPortControllerFW"),
        SoftwareQueries("QV_SATAPortControllerBIOS"),
        Always("QV_WinComputerSystem",
               R"(CreationClassName="QV_WinComputerSystem",Name="host.example.org")", {}, {}),
    };
    return table;
}

}  // namespace qv::test
