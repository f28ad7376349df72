#pragma once

#include <optional>
#include <string>

#include "platform/QueryPort.h"

namespace qv {

/// What a Win32_PhysicalMedia row says of the disk that it belongs to.
struct PhysicalMedia {
    std::string serialNumber;
    std::string tag;  ///< the disk's device path
};

/// Asks for the media rows and gives the one of the Win32_DiskDrive row (FindMediaOfDisk); nothing
/// when the query fails or none is the disk's.
std::optional<PhysicalMedia> QueryMediaOfDisk(const platform::QueryPort& queries,
                                              const platform::Row& disk);

}  // namespace qv
