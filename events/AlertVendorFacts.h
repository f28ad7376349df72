#pragma once

#include <string_view>

#include "events/AlertIndication.h"

namespace qv {

// Each function copies facts that other providers of the family publish in root\QVQ into an alert.
// Missing classes and rows are skipped, a missing property is left unset, and of several rows the
// first counts. A function fails only if the indication refuses a property.

/// Puts the host's package (serial number, product, model, GUID) and the version of its firmware.
Status PutSystemIdentity(PropertyTarget& indication, const platform::QueryPort& queries);

/// Puts the version of the software that has "qvwmiver.dll" among its IdentityInfoValue.
Status PutProviderVersion(PropertyTarget& indication, const platform::QueryPort& queries);

/// Puts the enclosure, the bay and the rack of a blade.
Status PutEnclosureLocation(PropertyTarget& indication, const platform::QueryPort& queries);

/// Puts the event's entry in the family's event catalogue; nothing for the provider "QV MCHealth",
/// which puts it itself.
Status PutErrorMetadata(PropertyTarget& indication, const platform::QueryPort& queries,
                        std::string_view providerName, std::string_view eventId);

}  // namespace qv
