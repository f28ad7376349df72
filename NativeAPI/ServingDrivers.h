#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/QueryPort.h"
#include "source/SourceRules.h"

namespace qv {

/// A Win32_SystemDriver row that serves a Win32_IDEController row, channels included.
struct ServingDriver {
    std::string controllerId;  ///< the controller's DeviceID
    std::string name;          ///< the driver's Name
    std::optional<ControllerFamily> family;
    bool isFirstOfFamily = false;

    /// Returns whether the controller's software is published: for the first controller of each
    /// family.
    bool IsPublished() const { return family && isFirstOfFamily; }
};

/// Queries the controllers and returns the drivers of each, found through the controller's
/// plug-and-play devices, in the order of the rows; none if a query fails.
std::vector<ServingDriver> QueryServingDrivers(const platform::QueryPort& queries);

}  // namespace qv
