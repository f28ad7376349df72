#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/ScriptedHost.h"

// The source rows of a small host.

namespace qv::test {

inline constexpr const char* disksQuery = "SELECT * FROM Win32_DiskDrive";
inline constexpr const char* mediaQuery = "SELECT * FROM Win32_PhysicalMedia";
inline constexpr const char* controllersQuery = "SELECT * FROM Win32_IDEController";
inline constexpr const char* controllerLinksQuery = "SELECT * FROM Win32_IDEControllerDevice";
inline constexpr const char* partitionLinksQuery = "SELECT * FROM Win32_DiskDriveToDiskPartition";
inline constexpr const char* partitionsQuery = "SELECT * FROM Win32_DiskPartition";
inline constexpr const char* publishedDisksQuery = "SELECT * FROM QV_SATADiskDrive";

inline const std::string ahciId = R"(PCI\VEN_8086&DEV_2922&SUBSYS_12345678&REV_02\3&1AB2&0&FA)";
inline const std::string ahciKey = "PCI&VEN_8086&DEV_2922&SUBSYS_12345678&REV_02&3&1AB2&0&FA";
inline const std::string channelId = R"(PCIIDE\IDECHANNEL\4&2E6E9E8&0&0)";
inline const std::string channelKey = "PCIIDE&IDECHANNEL&4&2E6E9E8&0&0";
inline const std::string diskId = R"(IDE\DISKXYZ_1.0\5&1A2B3C&0&0.0.0)";
inline const std::string diskKey = "IDE&DISKXYZ_1.0&5&1A2B3C&0&0.0.0";
inline const std::string drive0 = R"(\\.\PHYSICALDRIVE0)";

/// Returns the relative path of an object with the key DeviceID, backslashes doubled.
inline std::string RelativePath(std::string_view className, std::string_view deviceId) {
    std::string path = std::string(className) + ".DeviceID=\"";
    for (const char character : deviceId) {
        path.append(character == '\\' ? 2 : 1, character);
    }
    return path + "\"";
}

/// As RelativePath, with server and namespace.
inline std::string FullPath(std::string_view className, std::string_view deviceId) {
    return R"(\\SRV\root\CIMv2:)" + RelativePath(className, deviceId);
}

/// Returns rows with these properties.
inline platform::Rows RowsOf(std::vector<Properties> properties) {
    platform::Rows rows;
    for (Properties& one : properties) {
        rows.push_back(std::make_shared<ScriptedRow>(std::move(one)));
    }
    return rows;
}

/// Returns `base` with the properties of `changes` set.
inline Properties With(Properties base, const Properties& changes) {
    for (const auto& [name, value] : changes) {
        base[name] = value;
    }
    return base;
}

/// Returns `base` with one property set.
inline Properties With(Properties base, const std::string& name, platform::Value value) {
    return With(std::move(base), Properties{{name, std::move(value)}});
}

/// Returns `base` without one property.
inline Properties Without(Properties base, const std::string& name) {
    base.erase(name);
    return base;
}

/// A Win32_IDEController row, a controller or a channel.
inline Properties Controller(const std::string& deviceId) {
    return {{"DeviceID", deviceId},
            {"PNPDeviceID", deviceId},
            {"__PATH", FullPath("Win32_IDEController", deviceId)},
            {"Caption", "the caption"},
            {"Name", "the name"},
            {"Description", "the description"},
            {"Manufacturer", "the maker"},
            {"Status", "OK"}};
}

/// A Win32_IDEControllerDevice row.
inline Properties ControllerLink(const std::string& controllerId, const std::string& deviceId) {
    return {{"Antecedent", FullPath("Win32_IDEController", controllerId)},
            {"Dependent", FullPath("Win32_PnPEntity", deviceId)}};
}

/// A Win32_DiskDrive row of interface type "IDE".
inline Properties Disk(const std::string& pnpDeviceId, const std::string& devicePath = drive0) {
    return {
        {"InterfaceType", "IDE"},       {"PNPDeviceID", pnpDeviceId},   {"DeviceID", devicePath},
        {"Caption", "disk caption"},    {"Name", "disk name"},          {"Model", "disk model"},
        {"Manufacturer", "disk maker"}, {"FirmwareRevision", "fw 1.0"}, {"Status", "Degraded"}};
}

/// A Win32_DiskDrive row with every property that is read. Each value is different, so that none
/// can replace another unnoticed.
inline const Properties fullDisk{
    {"DeviceID", R"(\\.\PHYSICALDRIVE0)"},
    {"PNPDeviceID", R"(IDE\DISKX\5&1)"},
    {"InterfaceType", "IDE"},
    {"Caption", "the caption"},
    {"Description", "the description"},
    {"Name", "the name"},
    {"Status", "OK"},
    {"Capabilities", std::vector<std::uint16_t>{3, 4, 10}},
    {"FirmwareRevision", "FW01"},
    {"Index", std::int32_t{1}},
    {"Manufacturer", "the manufacturer"},
    {"Model", "the model"},
    {"Partitions", std::uint32_t{2}},
    {"SectorsPerTrack", std::uint32_t{63}},
    {"BytesPerSector", std::uint32_t{512}},
    {"Size", "500105249280"},
    {"TracksPerCylinder", std::uint32_t{255}},
    {"TotalCylinders", "60801"},
    {"TotalHeads", std::uint32_t{240}},
    {"TotalSectors", "976768065"},
    {"TotalTracks", "15504255"},
};

/// A Win32_PhysicalMedia row.
inline Properties Media(const std::string& tag, const std::string& serialNumber) {
    return {{"Tag", tag}, {"SerialNumber", serialNumber}};
}

/// A Win32_DiskDriveToDiskPartition row.
inline Properties PartitionLink(const std::string& devicePath, const std::string& partitionId) {
    return {{"Antecedent", FullPath("Win32_DiskDrive", devicePath)},
            {"Dependent", FullPath("Win32_DiskPartition", partitionId)}};
}

/// A Win32_DiskPartition row.
inline Properties Partition(const std::string& deviceId) {
    return {{"DeviceID", deviceId},
            {"Caption", "caption of " + deviceId},
            {"Description", "description of " + deviceId},
            {"Name", "name of " + deviceId},
            {"BlockSize", "512"},
            {"NumberOfBlocks", "2048"},
            {"Size", "1048576"},
            {"Bootable", true},
            {"BootPartition", false},
            {"PrimaryPartition", true}};
}

inline std::string DevicesOf(const std::string& controllerId) {
    return "ASSOCIATORS OF {" + RelativePath("Win32_IDEController", controllerId) +
           "} where assocclass=Win32_PnPDevice";
}

inline std::string DriversOf(const std::string& deviceId) {
    return "ASSOCIATORS OF {" + RelativePath("Win32_PnPEntity", deviceId) +
           "} where assocclass=Win32_SystemDriverPNPEntity";
}

/// Scripts a controller row's plug-and-play device and its driver.
inline void ServeWith(ScriptedHost& host, const std::string& controllerId,
                      const std::string& driverName) {
    host.Answer(DevicesOf(controllerId), {{{"__CLASS", "Win32_PnPEntity"},
                                           {"__PATH", FullPath("Win32_PnPEntity", controllerId)}}});
    host.Answer(DriversOf(controllerId),
                {{{"__CLASS", "Win32_SystemDriver"}, {"Name", driverName}}});
}

/// Returns the texts with "root\CIMv2: " before each, as in ScriptedHost::asked.
inline std::vector<std::string> InCimv2(std::vector<std::string> queries) {
    for (std::string& query : queries) {
        query.insert(0, "root\\CIMv2: ");
    }
    return queries;
}

}  // namespace qv::test
