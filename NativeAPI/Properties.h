#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Row.h"
#include "source/InstanceRecord.h"

namespace qv {

/// Puts the key SystemName, unless the host name is missing.
void PutSystemName(InstanceRecord& record, const std::optional<std::string>& hostName);

/// Puts the keys CreationClassName (the requested class as the caller spelled it) and
/// SystemCreationClassName.
void PutCreationClassNames(InstanceRecord& record);

/// Puts the property `name` as a string: the source text, or an empty text if it is missing.
void PutText(InstanceRecord& record, std::string_view name, const platform::Row& row,
             std::string_view sourceName);

/// Puts the property `name` as a number: the source's whole number, or 0 if it is missing.
void PutNumber(InstanceRecord& record, std::string_view name, const platform::Row& row,
               std::string_view sourceName);

/// Puts OperationalStatus from the row's Status.
void PutOperationalStatus(InstanceRecord& record, const platform::Row& row);

/// Puts OperationalStatus and StatusDescriptions from the row's Status. For a status text outside
/// the map OperationalStatus is empty, on purpose, and StatusDescriptions holds the text.
void PutStatus(InstanceRecord& record, const platform::Row& row);

}  // namespace qv
