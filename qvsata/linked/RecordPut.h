#pragma once

#include <string_view>

#include "qvsata/cim/Instance.h"
#include "source/InstanceRecord.h"

namespace qv::service {

/// Puts a record's entry on an instance as the library does: as the typed value that is published,
/// a reference prefixed with `namespacePrefix`. Records the Put with its result. Returns
/// Status::notFound if the class lacks the property, `typeMismatch` if the property's type does not
/// take the value, and Status::invalidCimType, without a Put, if the entry's type is never
/// published.
Status PutEntry(Instance& instance, const PropertyEntry& entry, std::string_view namespacePrefix);

/// Puts all entries of a record in order; refused ones are dropped. Returns Status::failed for a
/// record without entries.
Status PutRecord(Instance& instance, const InstanceRecord& record,
                 std::string_view namespacePrefix);

}  // namespace qv::service
