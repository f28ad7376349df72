#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qv::test {

/// Replaces HKEY_LOCAL_MACHINE in this process, so that tests neither read nor change the machine's
/// settings. It starts empty and is deleted with its contents.
class ScratchRegistry {
public:
    ScratchRegistry() : name_(L"Software\\QVLogTests." + std::to_wstring(GetCurrentProcessId())) {
        Check(RegCreateKeyExW(HKEY_CURRENT_USER, name_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                              nullptr, &root_, nullptr));
        Check(RegOverridePredefKey(HKEY_LOCAL_MACHINE, root_));
    }
    ScratchRegistry(const ScratchRegistry&) = delete;
    ScratchRegistry& operator=(const ScratchRegistry&) = delete;
    ~ScratchRegistry() {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegCloseKey(root_);
        RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
    }

    /// Returns the path of the replacement below HKEY_CURRENT_USER.
    const std::wstring& Name() const { return name_; }

    void CreateKey(const wchar_t* path) { RegCloseKey(Open(path)); }

    void SetNumber(const wchar_t* path, const wchar_t* name, std::uint32_t number) {
        SetBytes(path, name, REG_DWORD, std::as_bytes(std::span(&number, 1)));
    }

    /// Stores the text with its terminator.
    void SetText(const wchar_t* path, const wchar_t* name, const std::wstring& text,
                 DWORD type = REG_SZ) {
        SetBytes(path, name, type, std::as_bytes(std::span(text.c_str(), text.size() + 1)));
    }

    void SetBytes(const wchar_t* path, const wchar_t* name, DWORD type,
                  std::span<const std::byte> bytes) {
        const HKEY key = Open(path);
        const LSTATUS status =
            RegSetValueExW(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                           static_cast<DWORD>(bytes.size()));
        RegCloseKey(key);
        Check(status);
    }

private:
    static void Check(LSTATUS status) {
        if (status != ERROR_SUCCESS) {
            throw std::runtime_error("registry error " + std::to_string(status));
        }
    }

    HKEY Open(const wchar_t* path) {
        HKEY key = nullptr;
        Check(RegCreateKeyExW(root_, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr));
        return key;
    }

    std::wstring name_;
    HKEY root_ = nullptr;
};

}  // namespace qv::test
