#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace qv::test {

/// The contents of a registry key: "Key\Sub" for each key, "Key\Sub|Name" for each value, with the
/// value's text or, for another type, its type's number.
using RegistryDump = std::map<std::wstring, std::wstring>;

inline void AddKey(HKEY parent, const std::wstring& path, RegistryDump& dump) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return;
    }
    dump[path] = L"";
    std::vector<wchar_t> name(16384);
    std::vector<wchar_t> data(32768);
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        auto bytes = static_cast<DWORD>(data.size() * sizeof(wchar_t));
        DWORD type = REG_NONE;
        const LSTATUS status = RegEnumValueW(key, index, name.data(), &length, nullptr, &type,
                                             reinterpret_cast<BYTE*>(data.data()), &bytes);
        if (status == ERROR_NO_MORE_ITEMS) {
            break;
        }
        dump[path + L"|" + name.data()] =
            status == ERROR_SUCCESS && type == REG_SZ && bytes >= sizeof(wchar_t)
                ? std::wstring(data.data(), bytes / sizeof(wchar_t) - 1)
                : L"type " + std::to_wstring(type);
    }
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            break;
        }
        AddKey(parent, path + L"\\" + name.data(), dump);
    }
    RegCloseKey(key);
}

inline RegistryDump DumpOf(HKEY root, const std::wstring& path) {
    RegistryDump dump;
    AddKey(root, path, dump);
    return dump;
}

}  // namespace qv::test
