#pragma once

#include <array>
#include <cstddef>
#include <optional>
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
inline constexpr std::string_view entities = "Win32_PnPEntity";
inline constexpr std::string_view drivers = "Win32_SystemDriverPNPEntity";
inline constexpr std::string_view servingDrivers = "Win32_SystemDriver";
inline constexpr std::string_view predictions = "MSStorageDriver_FailurePredictStatus";

/// Returns all of them, in the order in which people read them. A function, because GNU ld for
/// Windows takes an inline array for defined twice.
constexpr auto All() {
    return std::array{disks,          predictions, controllers, links,   media,         partitions,
                      partitionLinks, devices,     entities,    drivers, servingDrivers};
}
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

/// Returns the place of the first published disk for which IsComparableWithMedia does not hold, if
/// there are media rows: the requests that compare disks with them then fail.
std::optional<std::size_t> FailingMediaSearch(const SourceRows& rows);

SourceRows ReadSourceRows(const platform::QueryPort& machine);

}  // namespace qv::explain
