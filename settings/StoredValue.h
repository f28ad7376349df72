#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qv {

/// A registry value as it is stored. Types are those of winnt.h: REG_SZ is 1, REG_DWORD is 4. A
/// value that cannot be read has type 0 and no bytes.
struct StoredValue {
    std::uint32_t type = 0;
    std::string bytes;
};

/// Returns a text (REG_SZ, or REG_EXPAND_SZ unexpanded) up to its first null character, or to the
/// end of the stored data if it has none, in UTF-16 units; nothing for another type. An odd last
/// byte is left out.
std::optional<std::wstring> TextOf(const StoredValue& value);

/// Returns the number of a REG_DWORD value of four bytes; nothing for another type or size.
std::optional<std::uint32_t> NumberOf(const StoredValue& value);

}  // namespace qv
