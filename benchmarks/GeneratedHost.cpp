#include "benchmarks/GeneratedHost.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace qv::benchmarks {
namespace {

using Property = std::pair<std::string, platform::Value>;

/// Properties sorted by name.
class SortedRow : public platform::Row {
public:
    explicit SortedRow(std::vector<Property> properties) : properties_(std::move(properties)) {
        std::ranges::sort(properties_, {}, &Property::first);
    }

    platform::PropertyRead Get(std::string_view name) const override {
        const auto found = std::ranges::lower_bound(properties_, name, {}, &Property::first);
        if (found == properties_.end() || found->first != name) {
            return {};
        }
        return {Status::noError, found->second};
    }

private:
    std::vector<Property> properties_;
};

// The text with the number in place of '#'.
std::string Numbered(std::string text, int number) {
    return text.replace(text.find('#'), 1, std::to_string(number));
}

std::vector<Property> SystemProperties(const std::string& className, const std::string& path) {
    return {
        {"__CLASS", className},
        {"__DERIVATION", platform::UnreadValue{}},
        {"__DYNASTY", "CIM_ManagedSystemElement"},
        {"__GENUS", 2},
        {"__NAMESPACE", "root\\CIMv2"},
        {"__PATH", "\\\\SRV01\\root\\CIMv2:" + path},
        {"__PROPERTY_COUNT", 50},
        {"__RELPATH", path},
        {"__SERVER", "SRV01"},
        {"__SUPERCLASS", "CIM_ManagedSystemElement"},
    };
}

std::shared_ptr<const platform::Row> MakeRow(std::vector<Property> properties,
                                             std::vector<Property> more) {
    properties.insert(properties.end(), std::make_move_iterator(more.begin()),
                      std::make_move_iterator(more.end()));
    return std::make_shared<SortedRow>(std::move(properties));
}

std::shared_ptr<const platform::Row> DiskRow(int number) {
    const std::string device = Numbered("\\\\.\\PHYSICALDRIVE#", number);
    return MakeRow(
        SystemProperties("Win32_DiskDrive", "Win32_DiskDrive.DeviceID=\"" + device + "\""),
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
            {"PNPDeviceID",
             Numbered("SCSI\\DISK&VEN_GENERIC&PROD_ST1000DM\\4&2E6E9E8&0&#", number)},
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

std::shared_ptr<const platform::Row> MediaRow(int number) {
    const std::string tag = Numbered("\\\\.\\PHYSICALDRIVE#", number);
    return MakeRow(
        SystemProperties("Win32_PhysicalMedia", "Win32_PhysicalMedia.Tag=\"" + tag + "\""),
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

std::shared_ptr<const platform::Row> ControllerRow(int number) {
    const std::string device =
        Numbered("PCI\\VEN_8086&DEV_2922&SUBSYS_11001AF4&REV_02\\3&#&0&FA", number);
    return MakeRow(
        SystemProperties("Win32_IDEController", "Win32_IDEController.DeviceID=\"" + device + "\""),
        {
            {"Availability", std::monostate{}},
            {"Caption", "Standard SATA AHCI Controller"},
            {"ConfigManagerErrorCode", 0},
            {"ConfigManagerUserConfig", false},
            {"CreationClassName", "Win32_IDEController"},
            {"Description", "Standard SATA AHCI Controller"},
            {"DeviceID", device},
            {"ErrorCleared", std::monostate{}},
            {"ErrorDescription", std::monostate{}},
            {"InstallDate", std::monostate{}},
            {"LastErrorCode", std::monostate{}},
            {"Manufacturer", "Standard SATA AHCI Controller"},
            {"MaxNumberControlled", std::monostate{}},
            {"Name", "Standard SATA AHCI Controller"},
            {"PNPDeviceID", device},
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

}  // namespace

GeneratedHost::GeneratedHost(int disks) {
    platform::Rows& diskRows = rowsOfQuery_["SELECT * FROM Win32_DiskDrive"];
    platform::Rows& mediaRows = rowsOfQuery_["SELECT * FROM Win32_PhysicalMedia"];
    platform::Rows& controllerRows = rowsOfQuery_["SELECT * FROM Win32_IDEController"];
    for (int number = 0; number < disks; ++number) {
        diskRows.push_back(DiskRow(number));
        mediaRows.push_back(MediaRow(number));
        controllerRows.push_back(ControllerRow(number));
    }
}

platform::QueryResult GeneratedHost::RunWqlQuery(std::string_view, std::string_view query,
                                                 platform::Rows& rows) const {
    rows.clear();
    const auto found = rowsOfQuery_.find(query);
    if (found == rowsOfQuery_.end()) {
        return platform::QueryResult::failed;
    }
    rows = found->second;
    return platform::QueryResult::submitted;
}

platform::ComputerName GeneratedHost::NameInFormat(platform::NameFormat) const {
    return {0, "srv01.example.org"};
}

}  // namespace qv::benchmarks
