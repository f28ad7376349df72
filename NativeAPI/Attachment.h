#pragma once

#include <string>
#include <string_view>

#include "platform/QueryPort.h"
#include "source/SourceRules.h"

namespace qv {

/// The text between the encoded ID of a device and that of its controller in a key.
inline constexpr std::string_view connectedTo = " connected to ";

/// Returns the key text of a device on a controller: both IDs encoded, joined by connectedTo.
/// `controller` is a Win32_IDEController row; if it is null, nothing follows connectedTo.
std::string ConnectedId(std::string_view deviceId, const platform::Row* controller);

/// The published disks and the rows that tell where they are attached.
struct AttachedDisks {
    platform::Rows disks;        ///< the Win32_DiskDrive rows of QueryIdeDisks
    platform::Rows controllers;  ///< the rows to which `links` refers
    ControllerLinks links;
};

/// Queries the disks, the links and the controllers, in this order. A failed query counts as one
/// without rows.
AttachedDisks QueryAttachedDisks(const platform::QueryPort& queries);

}  // namespace qv
