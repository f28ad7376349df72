#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "source/InstanceRecord.h"

namespace qv {

/// A reference to another instance by its relative object path. It is published with the prefix
/// \\server\namespace:, whose characters the path's code page may lack.
struct Reference {
    std::string path;

    bool operator==(const Reference&) const = default;
};

/// A value in its published type. std::monostate means no value: an array without elements.
using TypedValue = std::variant<std::monostate, std::string, Reference, std::uint8_t, std::int32_t,
                                bool, std::vector<std::string>, std::vector<std::int32_t>>;

/// Converts an entry's text by its type. Returns false for a type that is not published; the
/// property is then skipped. Numbers are read as atoi does: leading decimal digits, 0 if there are
/// none.
bool ToTypedValue(const PropertyEntry& entry, TypedValue& value);

}  // namespace qv
