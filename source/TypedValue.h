#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "source/InstanceRecord.h"

namespace qv {

/// A value with the type that it is published as. std::monostate is no value: an array without
/// elements.
using TypedValue = std::variant<std::monostate, std::string, std::uint8_t, std::int32_t, bool,
                                std::vector<std::string>, std::vector<std::int32_t>>;

/// Converts an entry's text by its type; `namespacePrefix` (\\server\namespace:) goes before a
/// reference. False when the type is none of those that are published: the property is skipped.
/// Numbers are read as atoi reads them: leading decimal digits, 0 where there are none.
bool ToTypedValue(const PropertyEntry& entry, std::string_view namespacePrefix, TypedValue& value);

}  // namespace qv
