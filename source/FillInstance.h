#pragma once

#include "platform/Status.h"
#include "source/InstanceRecord.h"
#include "source/PropertyTarget.h"

namespace qv {

/// Puts the record's entries, in their order, on an instance. An entry that the instance refuses (a
/// property that its class does not define, a value of the wrong type) is dropped, on purpose.
/// Returns Status::noError, or Status::failed for a record without properties.
Status FillInstance(PropertyTarget& instance, const InstanceRecord& record);

}  // namespace qv
