#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/QueryPort.h"

namespace qv {

/// Queries the disks and returns the published Win32_DiskDrive rows (IsIdeDisk) in order; none if
/// the query fails.
platform::Rows QueryIdeDisks(const platform::QueryPort& queries);

/// Queries the controllers: sets `controllers` to all Win32_IDEController rows, including channels.
/// Returns the status of the query; there are no rows if it failed.
Status QueryControllerRows(const platform::QueryPort& queries, platform::Rows& controllers);

/// A Win32_IDEController row and its DeviceID.
struct ControllerRow {
    std::string deviceId;
    std::shared_ptr<const platform::Row> row;
};

/// Queries the controllers and returns the rows with a DeviceID for which `isKept`
/// (IsPortController, IsInitiator) holds, in order; none if the query fails.
std::vector<ControllerRow> QueryControllers(const platform::QueryPort& queries,
                                            bool (*isKept)(std::string_view deviceId));

}  // namespace qv
