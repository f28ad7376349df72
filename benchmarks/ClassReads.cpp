#include "benchmarks/ClassReads.h"

#include <benchmark/benchmark.h>

#include <array>
#include <span>
#include <string>
#include <variant>

#include "source/SourceRules.h"

namespace qv::benchmarks {
namespace {

using Names = std::span<const char* const>;

constexpr std::array<const char*, 0> nothing{};
constexpr std::array linkEnds{"Antecedent", "Dependent"};

platform::Rows Query(const platform::QueryPort& queries, std::string_view query,
                     std::string_view nameSpace = "root\\CIMv2") {
    platform::Rows rows;
    queries.RunWqlQuery(nameSpace, query, rows);
    return rows;
}

platform::Rows QueryControllers(const platform::QueryPort& queries) {
    return Query(queries, "SELECT * FROM Win32_IDEController");
}

platform::Rows QueryDisks(const platform::QueryPort& queries) {
    return Query(queries, "SELECT * FROM Win32_DiskDrive");
}

std::string ReadText(const platform::Row& row, std::string_view name) {
    return std::get<std::string>(row.Get(name).value);
}

void Read(const platform::Row& row, Names names) {
    for (const std::string_view name : names) {
        benchmark::DoNotOptimize(row.Get(name));
    }
}

void ReadAll(const platform::Rows& rows, Names names) {
    for (const auto& row : rows) {
        Read(*row, names);
    }
}

// Reads the properties of the controller rows whose ID, in `idName`, the rule accepts.
void ReadKept(const platform::Rows& controllers, std::string_view idName,
              bool (*accepts)(std::string_view), Names names) {
    for (const auto& controller : controllers) {
        if (accepts(ReadText(*controller, idName))) {
            Read(*controller, names);
        }
    }
}

// Reads a disk's media row as the builder must: a query for each disk, tags compared in order.
void ReadMediaOfDisk(const platform::QueryPort& queries, const platform::Row& disk, Names names) {
    const platform::Rows media = Query(queries, "SELECT * FROM Win32_PhysicalMedia");
    const std::string deviceId = ReadText(disk, "DeviceID");
    for (const auto& row : media) {
        if (ReadText(*row, "Tag") == deviceId) {
            Read(*row, names);
            return;
        }
    }
}

void ReadHostName(const platform::HostFacts& host) {
    benchmark::DoNotOptimize(host.NameInFormat(platform::NameFormat::dnsFullyQualified));
}

void ReadPortControllers(const platform::QueryPort& queries, const platform::HostFacts& host) {
    static constexpr std::array names{"Caption", "Description", "Name", "ProtocolSupported",
                                      "Status"};
    ReadHostName(host);
    ReadKept(QueryControllers(queries), "DeviceID", IsPortController, names);
}

void ReadPackagesOfControllers(const platform::QueryPort& queries, const platform::HostFacts&) {
    static constexpr std::array names{"Caption", "Description", "Name", "Manufacturer"};
    ReadKept(QueryControllers(queries), "DeviceID", IsPortController, names);
}

void ReadControllerLocations(const platform::QueryPort& queries, const platform::HostFacts&) {
    static constexpr std::array names{"Caption"};
    ReadKept(QueryControllers(queries), "DeviceID", IsPortController, names);
}

void ReadControllerProducts(const platform::QueryPort& queries, const platform::HostFacts&) {
    static constexpr std::array names{"Caption", "Manufacturer"};
    ReadKept(QueryControllers(queries), "DeviceID", IsPortController, names);
}

void ReadInitiators(const platform::QueryPort& queries, const platform::HostFacts& host) {
    ReadHostName(host);
    ReadKept(QueryControllers(queries), "DeviceID", IsInitiator, nothing);
}

void ReadLogicalPorts(const platform::QueryPort& queries, const platform::HostFacts& host) {
    static constexpr std::array ofChannel{"__PATH", "Status"};
    static constexpr std::array ofController{"DeviceID"};
    const platform::Rows channels = QueryControllers(queries);
    const platform::Rows controllers = QueryControllers(queries);
    ReadHostName(host);
    ReadAll(Query(queries, "SELECT * FROM Win32_IDEControllerDevice"), linkEnds);
    ReadKept(controllers, "__PATH", IsPortController, ofController);
    ReadKept(channels, "PNPDeviceID", IsChannel, ofChannel);
}

void ReadDisks(const platform::QueryPort& queries, const platform::HostFacts& host) {
    static constexpr std::array names{
        "InterfaceType", "PNPDeviceID",     "Caption",        "Description",
        "Name",          "Status",          "Capabilities",   "FirmwareRevision",
        "Index",         "Manufacturer",    "Model",          "Partitions",
        "Size",          "SectorsPerTrack", "BytesPerSector", "TracksPerCylinder",
        "TotalHeads",    "TotalCylinders",  "TotalSectors",   "TotalTracks"};
    static constexpr std::array ofMedia{"SerialNumber"};
    ReadHostName(host);
    for (const auto& disk : QueryDisks(queries)) {
        Read(*disk, names);
        ReadMediaOfDisk(queries, *disk, ofMedia);
    }
}

void ReadFirmwareOfDisks(const platform::QueryPort& queries, const platform::HostFacts&) {
    static constexpr std::array names{"InterfaceType", "PNPDeviceID", "Model", "Manufacturer",
                                      "FirmwareRevision"};
    static constexpr std::array ofMedia{"SerialNumber"};
    for (const auto& disk : QueryDisks(queries)) {
        Read(*disk, names);
        ReadMediaOfDisk(queries, *disk, ofMedia);
    }
}

void ReadPackagesOfDisks(const platform::QueryPort& queries, const platform::HostFacts&) {
    static constexpr std::array names{"InterfaceType", "PNPDeviceID", "Caption",
                                      "Manufacturer",  "Model",       "FirmwareRevision"};
    static constexpr std::array ofMedia{"SerialNumber"};
    for (const auto& disk : QueryDisks(queries)) {
        Read(*disk, names);
        ReadMediaOfDisk(queries, *disk, ofMedia);
    }
}

void ReadExtents(const platform::QueryPort& queries, const platform::HostFacts& host) {
    static constexpr std::array ofDisk{"InterfaceType", "PNPDeviceID", "Status", "DeviceID"};
    static constexpr std::array ofPartition{
        "DeviceID",       "Caption", "Description", "Name",          "BlockSize",
        "NumberOfBlocks", "Size",    "Bootable",    "BootPartition", "PrimaryPartition"};
    ReadHostName(host);
    ReadAll(QueryDisks(queries), ofDisk);
    ReadAll(Query(queries, "SELECT * FROM Win32_DiskDriveToDiskPartition"), linkEnds);
    ReadAll(Query(queries, "SELECT * FROM Win32_DiskPartition"), ofPartition);
}

// Reads only what tells port controllers from channels, to which disks are attached.
void ReadAttachedDisks(const platform::QueryPort& queries, Names ofDisk, Names ofChannel) {
    ReadAll(QueryDisks(queries), ofDisk);
    ReadAll(Query(queries, "SELECT * FROM Win32_IDEControllerDevice"), linkEnds);
    ReadKept(QueryControllers(queries), "__PATH", IsChannel, ofChannel);
}

void ReadDiskLocations(const platform::QueryPort& queries, const platform::HostFacts&) {
    static constexpr std::array ofDisk{"InterfaceType", "PNPDeviceID", "Caption"};
    static constexpr std::array ofChannel{"Caption", "DeviceID"};
    ReadAttachedDisks(queries, ofDisk, ofChannel);
}

void ReadTargets(const platform::QueryPort& queries, const platform::HostFacts& host) {
    static constexpr std::array ofDisk{"InterfaceType", "PNPDeviceID"};
    static constexpr std::array ofChannel{"DeviceID"};
    ReadHostName(host);
    ReadAttachedDisks(queries, ofDisk, ofChannel);
}

void ReadCollection(const platform::QueryPort& queries, const platform::HostFacts& host) {
    static constexpr std::array names{"OperationalStatus"};
    ReadHostName(host);
    ReadAll(Query(queries, "SELECT * FROM QV_SATADiskDrive", "root\\QVQ"), names);
}

platform::Rows QueryAssociators(const platform::QueryPort& queries, const platform::Row& row,
                                std::string_view association) {
    const std::string path = ReadText(row, "__PATH");
    std::string query = "ASSOCIATORS OF {";
    query.append(path, path.find(':') + 1).append("} where assocclass=").append(association);
    return Query(queries, query);
}

// Reads the drivers of every controller and channel through its plug-and-play device.
void ReadSoftware(const platform::QueryPort& queries, const platform::HostFacts&) {
    static constexpr std::array ofController{"DeviceID"};
    static constexpr std::array ofDevice{"__CLASS"};
    static constexpr std::array ofDriver{"__CLASS", "Name"};
    for (const auto& controller : QueryControllers(queries)) {
        Read(*controller, ofController);
        for (const auto& device : QueryAssociators(queries, *controller, "Win32_PnPDevice")) {
            Read(*device, ofDevice);
            ReadAll(QueryAssociators(queries, *device, "Win32_SystemDriverPNPEntity"), ofDriver);
        }
    }
}

void ReadComputerSystem(const platform::QueryPort&, const platform::HostFacts& host) {
    ReadHostName(host);
}

constexpr std::array<ClassReads, 17> measuredClasses{{
    {"QV_SATAPortController", ReadPortControllers},
    {"QV_SATADiskDrive", ReadDisks},
    {"QV_SATAStorageExtent", ReadExtents},
    {"QV_SATADiskDriveFW", ReadFirmwareOfDisks},
    {"QV_SATAPortControllerPhysicalPackage", ReadPackagesOfControllers},
    {"QV_SATADiskPhysicalPackage", ReadPackagesOfDisks},
    {"QV_SATAStorageCollection", ReadCollection},
    {"QV_SATADiskLocation", ReadDiskLocations},
    {"QV_SATAControllerLocation", ReadControllerLocations},
    {"QV_SATAPortControllerProduct", ReadControllerProducts},
    {"QV_SATALogicalPort", ReadLogicalPorts},
    {"QV_ISATAProtocolEndpoint", ReadInitiators},
    {"QV_TSATAProtocolEndpoint", ReadTargets},
    {"QV_SATAPortControllerDriver", ReadSoftware},
    {"QV_SATAPortControllerFW", ReadSoftware},
    {"QV_SATAPortControllerBIOS", ReadSoftware},
    {"QV_WinComputerSystem", ReadComputerSystem},
}};

}  // namespace

std::span<const ClassReads> MeasuredClasses() {
    return measuredClasses;
}

}  // namespace qv::benchmarks
