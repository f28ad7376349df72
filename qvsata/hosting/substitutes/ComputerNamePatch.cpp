#include "qvsata/hosting/substitutes/ComputerNamePatch.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/windows/Text.h"

namespace qv::service {
namespace {

// The names that the replaced system function returns. They are global because the system passes it
// nothing that could lead to an object.
std::array<std::wstring, ComputerNameMax> recorded;

BOOL FailWith(DWORD error) {
    SetLastError(error);
    return FALSE;
}

BOOL WINAPI RecordedComputerName(COMPUTER_NAME_FORMAT format, LPWSTR buffer, LPDWORD size) {
    if (size == nullptr || (buffer == nullptr && *size != 0) || format < 0 ||
        format >= ComputerNameMax) {
        return FailWith(ERROR_INVALID_PARAMETER);
    }
    const std::wstring& name = recorded[static_cast<std::size_t>(format)];
    if (name.empty()) {
        return FailWith(ERROR_INVALID_COMPUTERNAME);
    }
    const auto length = static_cast<DWORD>(name.size());
    if (*size <= length) {
        *size = length + 1;
        return FailWith(ERROR_MORE_DATA);
    }
    std::ranges::copy(name, buffer);
    buffer[length] = L'\0';
    *size = length;
    return TRUE;
}

}  // namespace

ComputerNamePatch::ComputerNamePatch(HMODULE module, const ComputerNames& names)
    : patch_(module, "GetComputerNameExW",
             reinterpret_cast<ImportPatch::Function>(&RecordedComputerName)) {
    const auto record = [](const std::string& name, COMPUTER_NAME_FORMAT format,
                           COMPUTER_NAME_FORMAT physical) {
        recorded[static_cast<std::size_t>(format)] = windows::ToWide(name, CP_UTF8);
        recorded[static_cast<std::size_t>(physical)] = recorded[static_cast<std::size_t>(format)];
    };
    record(names.netbios, ComputerNameNetBIOS, ComputerNamePhysicalNetBIOS);
    record(names.dnsHostname, ComputerNameDnsHostname, ComputerNamePhysicalDnsHostname);
    record(names.dnsFullyQualified, ComputerNameDnsFullyQualified,
           ComputerNamePhysicalDnsFullyQualified);
}

ComputerNamePatch::~ComputerNamePatch() {
    recorded = {};
}

}  // namespace qv::service
