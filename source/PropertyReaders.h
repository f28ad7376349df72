#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Row.h"

namespace qv {

// Typed reads of a source row. Each succeeds only for the kinds of value that it names and returns
// Status::failed for any other kind, including null. A property that cannot be read is
// Status::failed too, except for GetStringProperty. On failure the output is unchanged, except for
// GetIntegerArrayProperty.

/// Accepts text only. For a property that cannot be read, returns the status of the read. If memory
/// runs out for the text, throws RequestError with Status::outOfMemory.
Status GetStringProperty(const platform::Row& row, std::string_view name, std::string& text);

/// Accepts signed and unsigned whole numbers of 8, 16 and 32 bits. Signed ones are sign-extended;
/// an unsigned 32-bit number keeps its bits.
Status GetIntegerProperty(const platform::Row& row, std::string_view name, std::int32_t& number);

/// Accepts a boolean only.
Status GetBooleanProperty(const platform::Row& row, std::string_view name, bool& flag);

/// Reads the low 16 bits of the number that GetIntegerProperty reads.
Status GetUInt16Property(const platform::Row& row, std::string_view name, std::uint16_t& number);

/// Accepts arrays of signed and unsigned 16- and 32-bit numbers. Elements of 16 bits are
/// zero-extended, also signed ones: an element is copied into a zeroed 32-bit slot. `numbers` is
/// cleared first.
Status GetIntegerArrayProperty(const platform::Row& row, std::string_view name,
                               std::vector<std::int32_t>& numbers);

/// Returns the property's text, or an empty text if GetStringProperty fails: a missing source text
/// is published as an empty one.
std::string TextOrEmpty(const platform::Row& row, std::string_view name);

/// Returns the property's number in decimal, or "0" if GetIntegerProperty fails.
std::string DecimalOrZero(const platform::Row& row, std::string_view name);

}  // namespace qv
