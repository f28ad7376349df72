#include "platform/windows/RegistryKey.h"

#include <algorithm>
#include <utility>

namespace qv::windows {
namespace {

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ;
}

/// Stored text may lack a terminator, and its size may be no whole number of characters.
std::wstring TextOf(std::wstring stored, DWORD bytes) {
    stored.resize(bytes / sizeof(wchar_t));
    stored.resize(std::min(stored.find(L'\0'), stored.size()));
    return stored;
}

}  // namespace

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

LSTATUS RegistryKey::ReadText(const wchar_t* name, std::wstring& text) const {
    DWORD type = REG_NONE;
    DWORD bytes = 0;
    LSTATUS status = RegQueryValueExW(key_, name, nullptr, &type, nullptr, &bytes);
    std::wstring stored;
    // Repeats only if another process makes the value longer between the two calls.
    do {
        if (status == ERROR_SUCCESS && !IsText(type)) {
            return ERROR_INVALID_DATATYPE;
        }
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) {
            return status;
        }
        stored.resize(bytes / sizeof(wchar_t) + 1);
        bytes = static_cast<DWORD>(stored.size() * sizeof(wchar_t));
        status = RegQueryValueExW(key_, name, nullptr, &type,
                                  reinterpret_cast<BYTE*>(stored.data()), &bytes);
    } while (status != ERROR_SUCCESS || !IsText(type));
    text = TextOf(std::move(stored), bytes);
    return ERROR_SUCCESS;
}

std::optional<DWORD> RegistryKey::ReadNumber(const wchar_t* name) const {
    DWORD type = REG_NONE;
    DWORD number = 0;
    DWORD bytes = sizeof(number);
    if (RegQueryValueExW(key_, name, nullptr, &type, reinterpret_cast<BYTE*>(&number), &bytes) !=
            ERROR_SUCCESS ||
        type != REG_DWORD || bytes != sizeof(number)) {
        return std::nullopt;
    }
    return number;
}

LSTATUS RegistryKey::ReadBytes(const wchar_t* name, std::span<std::byte> buffer,
                               std::size_t& read) const {
    auto bytes = static_cast<DWORD>(buffer.size());
    const LSTATUS status = RegQueryValueExW(key_, name, nullptr, nullptr,
                                            reinterpret_cast<BYTE*>(buffer.data()), &bytes);
    read = status == ERROR_SUCCESS ? bytes : 0;
    return status;
}

}  // namespace qv::windows
