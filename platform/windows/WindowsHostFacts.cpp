#include "platform/windows/WindowsHostFacts.h"

#include <windows.h>

#include <new>
#include <string>
#include <utility>

#include "platform/windows/Text.h"

namespace qv::windows {
namespace {

COMPUTER_NAME_FORMAT SystemFormat(platform::NameFormat format) {
    switch (format) {
        case platform::NameFormat::dnsFullyQualified:
            return ComputerNameDnsFullyQualified;
        case platform::NameFormat::dnsHostname:
            return ComputerNameDnsHostname;
        case platform::NameFormat::netBios:
            break;
    }
    return ComputerNameNetBIOS;
}

}  // namespace

platform::ComputerName WindowsHostFacts::NameInFormat(platform::NameFormat format) const try {
    constexpr DWORD usualLength = 256;
    const COMPUTER_NAME_FORMAT systemFormat = SystemFormat(format);
    std::wstring name(usualLength, L'\0');
    DWORD length = usualLength;
    BOOL known = GetComputerNameExW(systemFormat, name.data(), &length);
    if (!known && GetLastError() == ERROR_MORE_DATA) {
        name.resize(++length);
        known = GetComputerNameExW(systemFormat, name.data(), &length);
    }
    if (!known) {
        return {GetLastError(), {}};
    }
    name.resize(length);
    return {0, std::move(name)};
} catch (const std::bad_alloc&) {
    return {ERROR_NOT_ENOUGH_MEMORY, {}};
}

std::string WindowsHostFacts::ToNarrow(std::wstring_view text) const {
    return windows::ToNarrow(text);
}

}  // namespace qv::windows
