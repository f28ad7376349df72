#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/QueryPort.h"

namespace qv {

/// Asks for the disks and gives the Win32_DiskDrive rows that are published (IsIdeDisk), in their
/// order; none when the query fails.
platform::Rows QueryIdeDisks(const platform::QueryPort& queries);

/// Asks for the controllers and gives every Win32_IDEController row, channels among them; whether
/// the query could be run, otherwise there are none.
Status QueryControllerRows(const platform::QueryPort& queries, platform::Rows& controllers);

/// A Win32_IDEController row and its DeviceID.
struct ControllerRow {
    std::string deviceId;
    std::shared_ptr<const platform::Row> row;
};

/// Asks for the controllers and gives the rows with a DeviceID that is kept (IsPortController,
/// IsInitiator), in their order; none when the query fails.
std::vector<ControllerRow> QueryControllers(const platform::QueryPort& queries,
                                            bool (*isKept)(std::string_view deviceId));

}  // namespace qv
