#pragma once

#include <string_view>

#include "qvsata/cim/Instance.h"
#include "source/InstanceRecord.h"

namespace qv::service {

/// Puts a record's entry on an instance as the library does: as the typed value that it is
/// published as, references behind `namespacePrefix`. The put is recorded with its result. Returns
/// Status::notFound for a property that the class lacks, `typeMismatch` for a value that the
/// property's type does not take and Status::invalidCimType, without a put, for an entry of no
/// published type.
Status PutEntry(Instance& instance, const PropertyEntry& entry, std::string_view namespacePrefix);

/// Puts all entries of a record in their order; what is refused is dropped. Status::failed for a
/// record without entries.
Status PutRecord(Instance& instance, const InstanceRecord& record,
                 std::string_view namespacePrefix);

}  // namespace qv::service
