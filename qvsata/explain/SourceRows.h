#pragma once

#include <array>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "NativeAPI/ServingDrivers.h"
#include "platform/QueryPort.h"

namespace qv::explain {

namespace source {
inline constexpr std::string_view disks = "Win32_DiskDrive";
inline constexpr std::string_view media = "Win32_PhysicalMedia";
inline constexpr std::string_view controllers = "Win32_IDEController";
inline constexpr std::string_view links = "Win32_IDEControllerDevice";
inline constexpr std::string_view partitionLinks = "Win32_DiskDriveToDiskPartition";
inline constexpr std::string_view partitions = "Win32_DiskPartition";
inline constexpr std::string_view devices = "Win32_PnPDevice";
inline constexpr std::string_view drivers = "Win32_SystemDriverPNPEntity";
inline constexpr std::string_view predictions = "MSStorageDriver_FailurePredictStatus";

inline constexpr std::array all{disks,      media,   controllers, links,      partitionLinks,
                                partitions, devices, drivers,     predictions};
}  // namespace source

/// The rows that the provider reads of a machine, in their order.
struct SourceRows {
    platform::Rows disks;
    platform::Rows media;
    platform::Rows controllers;
    platform::Rows links;
    platform::Rows partitionLinks;
    platform::Rows partitions;
    platform::Rows predictions;
    std::vector<ServingDriver> drivers;

    /// The classes that could not be read to their last row. ReadSourceRows leaves it empty.
    std::set<std::string_view> unread;
};

SourceRows ReadSourceRows(const platform::QueryPort& machine);

}  // namespace qv::explain
