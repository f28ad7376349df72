#include "platform/windows/RegistryKey.h"

#include <utility>

namespace qv::windows {
RegistryKey RegistryKey::OpenLocalMachine(const wchar_t* path, REGSAM access) {
    RegistryKey opened;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path, 0, access, &opened.key_) != ERROR_SUCCESS) {
        opened.key_ = nullptr;
    }
    return opened;
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}

RegistryKey& RegistryKey::operator=(RegistryKey&& other) noexcept {
    std::swap(key_, other.key_);
    return *this;
}

RegistryKey::~RegistryKey() {
    if (key_ != nullptr) {
        RegCloseKey(key_);
    }
}

LSTATUS RegistryKey::Read(const wchar_t* name, StoredValue& value) const {
    value = {};
    DWORD type = REG_NONE;
    DWORD size = 0;
    LSTATUS status = RegQueryValueExW(key_, name, nullptr, &type, nullptr, &size);
    std::string bytes;
    // Repeats only if another process makes the value longer between the two calls.
    do {
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) {
            return status;
        }
        bytes.resize(size);
        status = RegQueryValueExW(key_, name, nullptr, &type, reinterpret_cast<BYTE*>(bytes.data()),
                                  &size);
    } while (status != ERROR_SUCCESS);
    bytes.resize(size);
    value = {type, std::move(bytes)};
    return ERROR_SUCCESS;
}

LSTATUS RegistryKey::ReadText(const wchar_t* name, std::wstring& text) const {
    StoredValue value;
    if (const LSTATUS status = Read(name, value); status != ERROR_SUCCESS) {
        return status;
    }
    std::optional<std::wstring> stored = TextOf(value);
    if (!stored) {
        return ERROR_INVALID_DATATYPE;
    }
    text = std::move(*stored);
    return ERROR_SUCCESS;
}

std::optional<DWORD> RegistryKey::ReadNumber(const wchar_t* name) const {
    StoredValue value;
    return Read(name, value) == ERROR_SUCCESS ? NumberOf(value) : std::nullopt;
}

}  // namespace qv::windows
