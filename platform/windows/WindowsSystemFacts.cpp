// clang-format off
#include <winsock2.h>
#include <ws2tcpip.h>
// clang-format on
#include "platform/windows/WindowsSystemFacts.h"

#include <iphlpapi.h>
#include <objbase.h>
#include <windows.h>

#include <array>
#include <memory>

#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"

namespace qv::windows {
namespace {

/// Keeps Winsock initialised while it lives.
class WinsockSession {
public:
    WinsockSession() {
        WSADATA data{};
        started_ = WSAStartup(MAKEWORD(2, 2), &data) == 0;
    }
    WinsockSession(const WinsockSession&) = delete;
    WinsockSession& operator=(const WinsockSession&) = delete;
    ~WinsockSession() {
        if (started_) {
            WSACleanup();
        }
    }

private:
    bool started_;
};

ULONG EnumerateAdapters(IP_ADAPTER_ADDRESSES* adapters, ULONG& size) {
    constexpr ULONG unicastOnly =
        GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER;
    return GetAdaptersAddresses(AF_UNSPEC, unicastOnly, nullptr, adapters, &size);
}

void AppendAddresses(const IP_ADAPTER_ADDRESSES& adapter, std::vector<std::string>& addresses) {
    for (const auto* unicast = adapter.FirstUnicastAddress; unicast != nullptr;
         unicast = unicast->Next) {
        std::array<wchar_t, 128> text{};
        auto length = static_cast<DWORD>(text.size());
        if (WSAAddressToStringW(unicast->Address.lpSockaddr,
                                static_cast<DWORD>(unicast->Address.iSockaddrLength), nullptr,
                                text.data(), &length) == 0) {
            addresses.push_back(ToNarrow(text.data()));
        }
    }
}

}  // namespace

platform::OsVersion WindowsSystemFacts::Version() const {
    // The documented call returns the version for which the host program declares support.
    using GetVersionCall = LONG(WINAPI*)(OSVERSIONINFOW*);
    const auto getVersion = reinterpret_cast<GetVersionCall>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (getVersion != nullptr) {
        getVersion(&version);
    }
    return {version.dwMajorVersion, version.dwMinorVersion, version.dwBuildNumber};
}

Status WindowsSystemFacts::NetworkAddresses(std::vector<std::string>& addresses) const {
    addresses.clear();
    ULONG size = 0;
    const ULONG measured = EnumerateAdapters(nullptr, size);
    if (measured == ERROR_NO_DATA) {
        return Status::noError;
    }
    if (measured != ERROR_BUFFER_OVERFLOW) {
        return Status::failed;
    }
    // Whole adapters, for their alignment.
    std::vector<IP_ADAPTER_ADDRESSES> buffer(size / sizeof(IP_ADAPTER_ADDRESSES) + 1);
    if (EnumerateAdapters(buffer.data(), size) != ERROR_SUCCESS) {
        return Status::failed;
    }
    const WinsockSession winsock;
    for (const IP_ADAPTER_ADDRESSES* adapter = buffer.data(); adapter != nullptr;
         adapter = adapter->Next) {
        AppendAddresses(*adapter, addresses);
    }
    return Status::noError;
}

Status WindowsSystemFacts::NewGuid(std::string& guid) const {
    GUID made{};
    const HRESULT result = CoCreateGuid(&made);
    if (FAILED(result)) {
        return ToStatus(result);
    }
    std::array<wchar_t, 39> text{};
    StringFromGUID2(made, text.data(), static_cast<int>(text.size()));
    guid = ToNarrow(text.data());
    return Status::noError;
}

}  // namespace qv::windows
