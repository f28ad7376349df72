#pragma once

#include <string_view>

#include "events/AlertIndication.h"

namespace qv {

// What other providers of the family publish in root\QVQ and an alert repeats. Each may be missing:
// a class or a row that there is not is passed over, a property that there is not is left unset,
// and of several rows the first counts. A failure is that of a property that the indication does
// not take.

/// The host's package (serial number, product, model, GUID) and its firmware's version.
Status PutSystemIdentity(PropertyTarget& indication, const platform::QueryPort& queries);

/// The version of the software that has "qvwmiver.dll" among its IdentityInfoValue.
Status PutProviderVersion(PropertyTarget& indication, const platform::QueryPort& queries);

/// The enclosure, the bay and the rack of a blade.
Status PutEnclosureLocation(PropertyTarget& indication, const platform::QueryPort& queries);

/// What the family's event catalogue says of the event; nothing for the provider "QV MCHealth",
/// which says it itself.
Status PutErrorMetadata(PropertyTarget& indication, const platform::QueryPort& queries,
                        std::string_view providerName, std::string_view eventId);

}  // namespace qv
