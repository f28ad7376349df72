#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Row.h"

namespace qv {

// Typed reads of a source row. Each succeeds only for the kinds of value that it names; another
// kind, null included, gives Status::failed, and so does a property that cannot be read, but for
// GetStringProperty. On failure the output stays as it was, but for GetIntegerArrayProperty.

/// Accepts text only. A property that cannot be read gives the status of the read. When there is no
/// memory for the text, the request ends: RequestError with Status::outOfMemory.
Status GetStringProperty(const platform::Row& row, std::string_view name, std::string& text);

/// Accepts signed and unsigned whole numbers of 8, 16 and 32 bits, extended by their sign; a
/// 32-bit unsigned number keeps its bits.
Status GetIntegerProperty(const platform::Row& row, std::string_view name, std::int32_t& number);

/// Accepts a boolean only.
Status GetBooleanProperty(const platform::Row& row, std::string_view name, bool& flag);

/// The low 16 bits of what GetIntegerProperty reads.
Status GetUInt16Property(const platform::Row& row, std::string_view name, std::uint16_t& number);

/// Accepts arrays of signed and unsigned 16- and 32-bit numbers. Elements of 16 bits are
/// zero-extended, signed ones too: an element is read as it stands into a zeroed 32-bit slot.
/// `numbers` is emptied first.
Status GetIntegerArrayProperty(const platform::Row& row, std::string_view name,
                               std::vector<std::int32_t>& numbers);

/// The property's text, empty where GetStringProperty fails: a source text that is missing is
/// published as an empty one.
std::string TextOrEmpty(const platform::Row& row, std::string_view name);

/// The property's number in decimal, "0" where GetIntegerProperty fails.
std::string DecimalOrZero(const platform::Row& row, std::string_view name);

}  // namespace qv
