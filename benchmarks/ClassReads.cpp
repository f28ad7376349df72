#include "benchmarks/ClassReads.h"

#include <benchmark/benchmark.h>

#include <array>
#include <initializer_list>
#include <string>
#include <variant>

namespace qv::benchmarks {
namespace {

platform::Rows Query(const platform::QueryPort& queries, std::string_view query) {
    platform::Rows rows;
    queries.RunWqlQuery("root\\CIMv2", query, rows);
    return rows;
}

void ReadHostName(const platform::HostFacts& host) {
    benchmark::DoNotOptimize(host.NameInFormat(platform::NameFormat::dnsFullyQualified));
}

void Read(const platform::Row& row, std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names) {
        benchmark::DoNotOptimize(row.Get(name));
    }
}

// The media row of a disk, sought as it must be: a query for each disk, tags compared in order.
void ReadMediaOfDisk(const platform::QueryPort& queries, const platform::Row& disk) {
    const platform::Rows media = Query(queries, "SELECT * FROM Win32_PhysicalMedia");
    const platform::Value deviceId = disk.Get("DeviceID").value;
    for (const auto& row : media) {
        const platform::Value tag = row->Get("Tag").value;
        if (std::get<std::string>(tag) == std::get<std::string>(deviceId)) {
            Read(*row, {"SerialNumber"});
            return;
        }
    }
}

void ReadPortControllers(const platform::QueryPort& queries, const platform::HostFacts& host) {
    ReadHostName(host);
    for (const auto& controller : Query(queries, "SELECT * FROM Win32_IDEController")) {
        Read(*controller,
             {"DeviceID", "Caption", "Description", "Name", "ProtocolSupported", "Status"});
    }
}

void ReadDisks(const platform::QueryPort& queries, const platform::HostFacts& host) {
    ReadHostName(host);
    for (const auto& disk : Query(queries, "SELECT * FROM Win32_DiskDrive")) {
        Read(*disk, {"InterfaceType",
                     "PNPDeviceID",
                     "Caption",
                     "Description",
                     "Name",
                     "Status",
                     "Capabilities",
                     "FirmwareRevision",
                     "Index",
                     "Manufacturer",
                     "Model",
                     "Partitions",
                     "SectorsPerTrack",
                     "BytesPerSector",
                     "Size",
                     "TracksPerCylinder",
                     "TotalCylinders",
                     "TotalHeads",
                     "TotalSectors",
                     "TotalTracks"});
        ReadMediaOfDisk(queries, *disk);
    }
}

constexpr std::array measuredClasses{
    ClassReads{"QV_SATAPortController", ReadPortControllers},
    ClassReads{"QV_SATADiskDrive", ReadDisks},
};

}  // namespace

std::span<const ClassReads> MeasuredClasses() {
    return measuredClasses;
}

}  // namespace qv::benchmarks
