#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "settings/StoredValue.h"

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

    /// Reads a value as it is stored. Results: 0; ERROR_FILE_NOT_FOUND for a missing value; the
    /// system's own errors. `value` is empty unless the result is 0.
    LSTATUS Read(const wchar_t* name, StoredValue& value) const;

    /// Reads a text, as TextOf takes it. Writes `text` on success only. Results as those of Read;
    /// ERROR_INVALID_DATATYPE for another type.
    LSTATUS ReadText(const wchar_t* name, std::wstring& text) const;

    /// Reads a number, as NumberOf takes it; returns nothing for a missing value.
    std::optional<DWORD> ReadNumber(const wchar_t* name) const;

private:
    HKEY key_ = nullptr;
};

}  // namespace qv::windows
