#pragma once

#include <windows.h>

#include <string_view>

#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {

/// While it lives, a module receives a computer name that code page 1252 lacks.
class CyrillicComputerName {
public:
    static constexpr std::wstring_view name = L"сервер";

    explicit CyrillicComputerName(HMODULE module) : reader_(module, "GetComputerNameExW", &Write) {}

private:
    static BOOL WINAPI Write(COMPUTER_NAME_FORMAT, LPWSTR buffer, LPDWORD length) {
        name.copy(buffer, name.size());
        *length = static_cast<DWORD>(name.size());
        return TRUE;
    }

    ReplacedImport<BOOL WINAPI(COMPUTER_NAME_FORMAT, LPWSTR, LPDWORD)> reader_;
};

}  // namespace qv::test
