#pragma once

#include <string_view>

#include "platform/Clock.h"
#include "platform/HostFacts.h"
#include "platform/QueryPort.h"
#include "platform/SystemFacts.h"
#include "source/PropertyTarget.h"

namespace qv {

/// The sources of an alert's common properties.
struct AlertSources {
    const platform::QueryPort& queries;
    const platform::HostFacts& host;
    const platform::SystemFacts& system;
    const platform::Clock& clock;
};

/// Puts what every alert indication says about itself, its provider and its host, in a fixed order.
/// Stops at the first failure and returns its status. Facts that other providers publish in
/// root\QVQ (AlertVendorFacts.h) may be missing and are then left unset.
Status FillCommonProperties(PropertyTarget& indication, std::string_view providerName,
                            std::string_view eventId, const AlertSources& sources);

}  // namespace qv
