#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace qv::windows {

/// Owns a key of the local machine's hive, open for reading.
class RegistryKey {
public:
    /// Opens the key at `path` below HKEY_LOCAL_MACHINE with the given access rights. The result
    /// converts to false if the key is missing or refused.
    static RegistryKey OpenLocalMachine(const wchar_t* path, REGSAM access = KEY_READ);

    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey();

    explicit operator bool() const { return key_ != nullptr; }

    /// Reads a text (REG_SZ, or REG_EXPAND_SZ unexpanded) up to its first null character, or to the
    /// end of the stored data if it has none. Writes `text` on success only. Results: 0;
    /// ERROR_FILE_NOT_FOUND for a missing value; ERROR_INVALID_DATATYPE for another type; the
    /// system's own errors.
    LSTATUS ReadText(const wchar_t* name, std::wstring& text) const;

    /// Returns the number of a REG_DWORD value of four bytes; nothing for a missing value or
    /// another type or size.
    std::optional<DWORD> ReadNumber(const wchar_t* name) const;

    /// Reads a value of any type as it is stored. `read` receives the number of bytes. Results: 0;
    /// ERROR_MORE_DATA if the buffer is too small; the system's own errors.
    LSTATUS ReadBytes(const wchar_t* name, std::span<std::byte> buffer, std::size_t& read) const;

private:
    HKEY key_ = nullptr;
};

}  // namespace qv::windows
