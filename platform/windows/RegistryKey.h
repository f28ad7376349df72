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
    /// Opens the key at `path` below HKEY_LOCAL_MACHINE with the access rights given. The result
    /// converts to false when the key is missing or refused.
    static RegistryKey OpenLocalMachine(const wchar_t* path, REGSAM access = KEY_READ);

    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept;
    RegistryKey& operator=(RegistryKey&& other) noexcept;
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    ~RegistryKey();

    explicit operator bool() const { return key_ != nullptr; }

    /// Reads a text (REG_SZ, or REG_EXPAND_SZ as it is stored) up to its first null character, or
    /// up to the end of the stored data when no null ends it. `text` is written on success only.
    /// Results: 0; ERROR_FILE_NOT_FOUND when there is no such value; ERROR_INVALID_DATATYPE when
    /// it is of another type; the system's own errors.
    LSTATUS ReadText(const wchar_t* name, std::wstring& text) const;

    /// The number of a REG_DWORD value of four bytes; nothing when there is no such value, or one
    /// of another type or size.
    std::optional<DWORD> ReadNumber(const wchar_t* name) const;

    /// Reads a value of any type as it is stored. `read` receives the number of bytes.
    /// Results: 0; ERROR_MORE_DATA when the buffer is too small; the system's own errors.
    LSTATUS ReadBytes(const wchar_t* name, std::span<std::byte> buffer, std::size_t& read) const;

private:
    HKEY key_ = nullptr;
};

}  // namespace qv::windows
