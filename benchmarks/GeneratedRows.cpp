#include "benchmarks/GeneratedRows.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace qv::benchmarks {
namespace {

using Property = std::pair<std::string, platform::Value>;
using Properties = std::vector<Property>;

/// Properties sorted by name.
class SortedRow : public platform::Row {
public:
    explicit SortedRow(Properties properties) : properties_(std::move(properties)) {
        std::ranges::sort(properties_, {}, &Property::first);
    }

    platform::PropertyRead Get(std::string_view name) const override {
        const auto found = std::ranges::lower_bound(properties_, name, {}, &Property::first);
        if (found == properties_.end() || found->first != name) {
            return {};
        }
        return {Status::noError, found->second};
    }
    Status GetWideText(std::string_view, std::wstring&) const override { return Status::notFound; }

private:
    Properties properties_;
};

// Returns the text with the number, always five digits, in place of '#'.
std::string Numbered(std::string text, int number) {
    return text.replace(text.find('#'), 1, std::to_string(10000 + number));
}

std::string DevicePath(int diskNumber) {
    return Numbered(R"(\\.\PHYSICALDRIVE#)", diskNumber);
}

std::string PartitionId(int diskNumber, int partitionNumber) {
    return Numbered("Disk no. #, Partition ", diskNumber) + std::to_string(partitionNumber);
}

std::string FullPath(const std::string& className, const std::string& deviceId) {
    return R"(\\SRV01\root\CIMv2:)" + RelativePath(className, deviceId);
}

// Returns a row with the system properties that every row has besides its own.
GeneratedRow MakeRow(const std::string& className, const std::string& relativePath,
                     Properties properties) {
    Properties all{
        {"__CLASS", className},
        {"__DERIVATION", platform::UnreadValue{}},
        {"__DYNASTY", "CIM_ManagedSystemElement"},
        {"__GENUS", 2},
        {"__NAMESPACE", "root\\CIMv2"},
        {"__PATH", R"(\\SRV01\root\CIMv2:)" + relativePath},
        {"__PROPERTY_COUNT", 50},
        {"__RELPATH", relativePath},
        {"__SERVER", "SRV01"},
        {"__SUPERCLASS", "CIM_ManagedSystemElement"},
    };
    std::ranges::move(properties, std::back_inserter(all));
    return std::make_shared<SortedRow>(std::move(all));
}

// Returns a row of an association between an object of each class.
GeneratedRow MakeLink(const std::string& className, const std::string& antecedent,
                      const std::string& dependent) {
    return MakeRow(className,
                   className + ".Antecedent=\"" + antecedent + "\",Dependent=\"" + dependent + "\"",
                   {
                       {"AccessState", std::monostate{}},
                       {"Antecedent", antecedent},
                       {"Dependent", dependent},
                       {"NegotiatedDataWidth", std::monostate{}},
                       {"NegotiatedSpeed", std::monostate{}},
                       {"NumberOfHardResets", std::monostate{}},
                       {"NumberOfSoftResets", std::monostate{}},
                   });
}

}  // namespace

std::string ControllerId(int number) {
    return Numbered(R"(PCI\VEN_8086&DEV_2922&SUBSYS_11001AF4&REV_02\3&#&0&FA)", number);
}

std::string ChannelId(int number) {
    return Numbered(R"(PCIIDE\IDECHANNEL\4&2E6E9E8&0&#)", number);
}

std::string DiskId(int number) {
    return Numbered(R"(IDE\DISKGENERIC_ST1000DM003____CC43____\5&1A2B3C4D&0&#)", number);
}

std::string RelativePath(const std::string& className, const std::string& deviceId) {
    std::string path = className + ".DeviceID=\"";
    for (const char character : deviceId) {
        path.append(character == '\\' ? 2 : 1, character);
    }
    return path + "\"";
}

GeneratedRow DiskRow(int number) {
    const std::string device = DevicePath(number);
    return MakeRow("Win32_DiskDrive", RelativePath("Win32_DiskDrive", device),
                   {
                       {"Availability", std::monostate{}},
                       {"BytesPerSector", 512},
                       {"Capabilities", std::vector<std::int32_t>{3, 4, 10}},
                       {"CapabilityDescriptions", platform::UnreadValue{}},
                       {"Caption", Numbered("GENERIC ST1000DM# SATA Disk Device", number)},
                       {"CompressionMethod", std::monostate{}},
                       {"ConfigManagerErrorCode", 0},
                       {"ConfigManagerUserConfig", false},
                       {"CreationClassName", "Win32_DiskDrive"},
                       {"DefaultBlockSize", std::monostate{}},
                       {"Description", "Disk drive"},
                       {"DeviceID", device},
                       {"ErrorCleared", std::monostate{}},
                       {"ErrorDescription", std::monostate{}},
                       {"ErrorMethodology", std::monostate{}},
                       {"FirmwareRevision", "CC43"},
                       {"Index", number},
                       {"InstallDate", std::monostate{}},
                       {"InterfaceType", "IDE"},
                       {"LastErrorCode", std::monostate{}},
                       {"Manufacturer", "(Standard disk drives)"},
                       {"MaxBlockSize", std::monostate{}},
                       {"MaxMediaSize", std::monostate{}},
                       {"MediaLoaded", true},
                       {"MediaType", "Fixed hard disk media"},
                       {"MinBlockSize", std::monostate{}},
                       {"Model", Numbered("GENERIC ST1000DM# SATA Disk Device", number)},
                       {"Name", device},
                       {"NeedsCleaning", std::monostate{}},
                       {"NumberOfMediaSupported", std::monostate{}},
                       {"PNPDeviceID", DiskId(number)},
                       {"Partitions", 2},
                       {"PowerManagementCapabilities", std::monostate{}},
                       {"PowerManagementSupported", std::monostate{}},
                       {"SCSIBus", 0},
                       {"SCSILogicalUnit", 0},
                       {"SCSIPort", 0},
                       {"SCSITargetId", number},
                       {"SectorsPerTrack", 63},
                       {"SerialNumber", Numbered("Z1D#", number)},
                       {"Signature", number},
                       {"Size", "1000202273280"},
                       {"Status", "OK"},
                       {"StatusInfo", std::monostate{}},
                       {"SystemCreationClassName", "Win32_ComputerSystem"},
                       {"SystemName", "SRV01"},
                       {"TotalCylinders", "121601"},
                       {"TotalHeads", 255},
                       {"TotalSectors", "1953520065"},
                       {"TotalTracks", "31008255"},
                       {"TracksPerCylinder", 255},
                   });
}

GeneratedRow MediaRow(int number) {
    const std::string tag = DevicePath(number);
    return MakeRow("Win32_PhysicalMedia", "Win32_PhysicalMedia.Tag=\"" + tag + "\"",
                   {
                       {"Capacity", std::monostate{}},
                       {"Caption", std::monostate{}},
                       {"CleanerMedia", std::monostate{}},
                       {"CreationClassName", std::monostate{}},
                       {"Description", std::monostate{}},
                       {"HotSwappable", std::monostate{}},
                       {"InstallDate", std::monostate{}},
                       {"Manufacturer", std::monostate{}},
                       {"MediaDescription", std::monostate{}},
                       {"MediaType", std::monostate{}},
                       {"Model", std::monostate{}},
                       {"Name", std::monostate{}},
                       {"OtherIdentifyingInfo", std::monostate{}},
                       {"PartNumber", std::monostate{}},
                       {"PoweredOn", std::monostate{}},
                       {"Removable", std::monostate{}},
                       {"Replaceable", std::monostate{}},
                       {"SKU", std::monostate{}},
                       {"SerialNumber", Numbered("Z1D#", number)},
                       {"Status", std::monostate{}},
                       {"Tag", tag},
                       {"Version", std::monostate{}},
                       {"WriteProtectOn", std::monostate{}},
                   });
}

GeneratedRow ControllerRow(const std::string& deviceId) {
    return MakeRow("Win32_IDEController", RelativePath("Win32_IDEController", deviceId),
                   {
                       {"Availability", std::monostate{}},
                       {"Caption", "Standard SATA AHCI Controller"},
                       {"ConfigManagerErrorCode", 0},
                       {"ConfigManagerUserConfig", false},
                       {"CreationClassName", "Win32_IDEController"},
                       {"Description", "Standard SATA AHCI Controller"},
                       {"DeviceID", deviceId},
                       {"ErrorCleared", std::monostate{}},
                       {"ErrorDescription", std::monostate{}},
                       {"InstallDate", std::monostate{}},
                       {"LastErrorCode", std::monostate{}},
                       {"Manufacturer", "Standard SATA AHCI Controller"},
                       {"MaxNumberControlled", std::monostate{}},
                       {"Name", "Standard SATA AHCI Controller"},
                       {"PNPDeviceID", deviceId},
                       {"PowerManagementCapabilities", std::monostate{}},
                       {"PowerManagementSupported", std::monostate{}},
                       {"ProtocolSupported", 37},
                       {"Status", "OK"},
                       {"StatusInfo", std::monostate{}},
                       {"SystemCreationClassName", "Win32_ComputerSystem"},
                       {"SystemName", "SRV01"},
                       {"TimeOfLastReset", std::monostate{}},
                   });
}

GeneratedRow ControllerLinkRow(const std::string& controllerId, const std::string& deviceId) {
    return MakeLink("Win32_IDEControllerDevice", FullPath("Win32_IDEController", controllerId),
                    FullPath("Win32_PnPEntity", deviceId));
}

GeneratedRow PartitionRow(int diskNumber, int partitionNumber) {
    const std::string deviceId = PartitionId(diskNumber, partitionNumber);
    return MakeRow("Win32_DiskPartition", RelativePath("Win32_DiskPartition", deviceId),
                   {
                       {"Access", std::monostate{}},
                       {"Availability", std::monostate{}},
                       {"BlockSize", "512"},
                       {"BootPartition", partitionNumber == 0},
                       {"Bootable", partitionNumber == 0},
                       {"Caption", deviceId},
                       {"ConfigManagerErrorCode", std::monostate{}},
                       {"CreationClassName", "Win32_DiskPartition"},
                       {"Description", "Installable File System"},
                       {"DeviceID", deviceId},
                       {"DiskIndex", diskNumber},
                       {"ErrorCleared", std::monostate{}},
                       {"HiddenSectors", std::monostate{}},
                       {"Index", partitionNumber},
                       {"InstallDate", std::monostate{}},
                       {"Name", deviceId},
                       {"NumberOfBlocks", "976560128"},
                       {"PNPDeviceID", std::monostate{}},
                       {"PrimaryPartition", true},
                       {"Purpose", std::monostate{}},
                       {"RewritePartition", std::monostate{}},
                       {"Size", "499998785536"},
                       {"StartingOffset", "1048576"},
                       {"Status", std::monostate{}},
                       {"SystemCreationClassName", "Win32_ComputerSystem"},
                       {"SystemName", "SRV01"},
                       {"Type", "Installable File System"},
                   });
}

GeneratedRow PartitionLinkRow(int diskNumber, int partitionNumber) {
    return MakeLink("Win32_DiskDriveToDiskPartition",
                    FullPath("Win32_DiskDrive", DevicePath(diskNumber)),
                    FullPath("Win32_DiskPartition", PartitionId(diskNumber, partitionNumber)));
}

GeneratedRow DeviceRow(const std::string& deviceId) {
    return MakeRow("Win32_PnPEntity", RelativePath("Win32_PnPEntity", deviceId),
                   {
                       {"Caption", "Standard SATA AHCI Controller"},
                       {"ClassGuid", "{4d36e96a-e325-11ce-bfc1-08002be10318}"},
                       {"Description", "Standard SATA AHCI Controller"},
                       {"DeviceID", deviceId},
                       {"Manufacturer", "Standard SATA AHCI Controller"},
                       {"Name", "Standard SATA AHCI Controller"},
                       {"PNPDeviceID", deviceId},
                       {"Service", "msahci"},
                       {"Status", "OK"},
                   });
}

GeneratedRow DriverRow(const std::string& name) {
    return MakeRow("Win32_SystemDriver", "Win32_SystemDriver.Name=\"" + name + "\"",
                   {
                       {"AcceptPause", false},
                       {"AcceptStop", true},
                       {"Caption", name},
                       {"DisplayName", name},
                       {"Name", name},
                       {"PathName", R"(C:\Windows\system32\drivers\)" + name + ".sys"},
                       {"ServiceType", "Kernel Driver"},
                       {"Started", true},
                       {"State", "Running"},
                       {"Status", "OK"},
                   });
}

GeneratedRow PublishedDiskRow(int number) {
    return MakeRow("QV_SATADiskDrive", RelativePath("QV_SATADiskDrive", DiskId(number)),
                   {
                       {"Caption", "GENERIC ST1000DM003 ATA Device"},
                       {"DeviceID", DiskId(number)},
                       {"OperationalStatus", std::vector<std::int32_t>{2}},
                       {"StatusDescriptions", std::vector<std::string>{"OK"}},
                       {"SystemName", "srv01.example.org"},
                   });
}

}  // namespace qv::benchmarks
