#pragma once

#include <string_view>

#include "platform/Clock.h"
#include "platform/HostFacts.h"
#include "platform/QueryPort.h"
#include "platform/SystemFacts.h"
#include "source/PropertyTarget.h"

namespace qv {

/// Where the common properties of an alert come from.
struct AlertSources {
    const platform::QueryPort& queries;
    const platform::HostFacts& host;
    const platform::SystemFacts& system;
    const platform::Clock& clock;
};

/// Puts what every alert indication says of itself, its provider and its host. The steps are taken
/// in a fixed order; the first that fails ends the filling with its status. What is published by
/// others in root\QVQ (AlertVendorFacts.h) may be missing, and is then left unset.
Status FillCommonProperties(PropertyTarget& indication, std::string_view providerName,
                            std::string_view eventId, const AlertSources& sources);

}  // namespace qv
