#pragma once

#include <optional>
#include <string>

#include "platform/QueryPort.h"

namespace qv {

/// The facts of a Win32_PhysicalMedia row about its disk.
struct PhysicalMedia {
    std::string serialNumber;
    std::string tag;  ///< the disk's device path
};

/// Queries the media rows and returns the one of the Win32_DiskDrive row (FindMediaOfDisk); nothing
/// if the query fails or the disk has none.
std::optional<PhysicalMedia> QueryMediaOfDisk(const platform::QueryPort& queries,
                                              const platform::Row& disk);

}  // namespace qv
