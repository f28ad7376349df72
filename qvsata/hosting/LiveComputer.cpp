#include "qvsata/hosting/LiveComputer.h"

#include <windows.h>

#include <string>

#include "platform/windows/Text.h"
#include "platform/windows/WindowsHostFacts.h"
#include "platform/windows/WindowsSystemFacts.h"

namespace qv::service {
namespace {

std::string NameOf(platform::NameFormat format) {
    return windows::ToNarrow(windows::WindowsHostFacts().NameInFormat(format).name, CP_UTF8);
}

/// Returns the system's code page. That of this process is UTF-8, see its manifest.
unsigned SystemCodePage() {
    DWORD codePage = 0;
    GetLocaleInfoW(LOCALE_SYSTEM_DEFAULT, LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                   reinterpret_cast<wchar_t*>(&codePage), sizeof codePage / sizeof(wchar_t));
    return codePage;
}

}  // namespace

RecordedHost ReadLiveComputer() {
    using platform::NameFormat;
    const platform::OsVersion version = windows::WindowsSystemFacts().Version();
    return RecordedHost(
        {"", NameOf(NameFormat::dnsFullyQualified), NameOf(NameFormat::dnsHostname),
         NameOf(NameFormat::netBios)},
        "recorded by qvsata capture",
        {std::to_string(version.majorNumber) + '.' + std::to_string(version.minorNumber) + '.' +
             std::to_string(version.build),
         SystemCodePage()});
}

}  // namespace qv::service
