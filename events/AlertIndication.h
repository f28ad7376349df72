#pragma once

#include <string_view>

#include "platform/Clock.h"
#include "platform/HostFacts.h"
#include "platform/QueryPort.h"
#include "platform/SystemFacts.h"
#include "source/InstanceRecord.h"

namespace qv {

/// An indication that is being filled.
class PropertyTarget {
public:
    virtual ~PropertyTarget() = default;

    /// Puts one property, or gives the reason why it was not taken.
    virtual Status Put(const PropertyEntry& property) = 0;

    /// The same of a text that no record holds and no code page narrows.
    virtual Status PutWideText(std::string_view name, std::wstring_view text) = 0;
};

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
