#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "source/InstanceRecord.h"

namespace qv {

/// A reference to another instance by its relative object path. It is published behind
/// \\server\namespace:, whose characters the path's code page may lack.
struct Reference {
    std::string path;

    bool operator==(const Reference&) const = default;
};

/// A value with the type that it is published as. std::monostate is no value: an array without
/// elements.
using TypedValue = std::variant<std::monostate, std::string, Reference, std::uint8_t, std::int32_t,
                                bool, std::vector<std::string>, std::vector<std::int32_t>>;

/// Converts an entry's text by its type. False when the type is none of those that are published:
/// the property is skipped. Numbers are read as atoi reads them: leading decimal digits, 0 where
/// there are none.
bool ToTypedValue(const PropertyEntry& entry, TypedValue& value);

}  // namespace qv
