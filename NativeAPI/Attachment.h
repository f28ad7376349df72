#pragma once

#include <string>
#include <string_view>

#include "platform/QueryPort.h"
#include "source/SourceRules.h"

namespace qv {

/// What stands in a key between the encoded ID of a device and that of its controller.
inline constexpr std::string_view connectedTo = " connected to ";

/// The key text of a device on a controller: both IDs encoded, with connectedTo between them. The
/// controller is a Win32_IDEController row; null leaves the text behind connectedTo empty.
std::string ConnectedId(std::string_view deviceId, const platform::Row* controller);

/// The published disks and what says where they are attached.
struct AttachedDisks {
    platform::Rows disks;        ///< the Win32_DiskDrive rows of QueryIdeDisks
    platform::Rows controllers;  ///< the rows to which `links` refers
    ControllerLinks links;
};

/// Asks for the disks, the links and the controllers, in this order. A query that fails gives no
/// rows.
AttachedDisks QueryAttachedDisks(const platform::QueryPort& queries);

}  // namespace qv
