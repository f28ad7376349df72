#include "qvsata/doctor/windows/Rights.h"

#include <aclapi.h>
#include <sddl.h>

#include <algorithm>
#include <array>
#include <memory>

#include "platform/windows/Text.h"
#include "qvsata/doctor/Gather.h"

namespace qv::doctor {
namespace {

struct Freed {
    void operator()(void* memory) const { LocalFree(memory); }
};

std::wstring IdOf(PSID account) {
    wchar_t* text = nullptr;
    if (!ConvertSidToStringSidW(account, &text)) {
        return {};
    }
    const std::unique_ptr<wchar_t, Freed> owner(text);
    return text;
}

/// Returns "DOMAIN\\NAME", or the ID of an account without a name.
std::string NameOf(PSID account) {
    std::array<wchar_t, 256> name{};
    std::array<wchar_t, 256> domain{};
    auto nameSize = static_cast<DWORD>(name.size());
    auto domainSize = static_cast<DWORD>(domain.size());
    SID_NAME_USE use{};
    if (!LookupAccountSidW(nullptr, account, name.data(), &nameSize, domain.data(), &domainSize,
                           &use)) {
        return windows::ToNarrow(IdOf(account), CP_UTF8);
    }
    const std::wstring prefix = domain[0] == L'\0' ? L"" : std::wstring(domain.data()) + L"\\";
    return windows::ToNarrow(prefix + name.data(), CP_UTF8);
}

/// The administrators, the system, and the service that installs the system's own files.
bool IsTrusted(PSID account) {
    constexpr const wchar_t* trustedInstaller =
        L"S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464";
    return IsWellKnownSid(account, WinBuiltinAdministratorsSid) ||
           IsWellKnownSid(account, WinLocalSystemSid) || IdOf(account) == trustedInstaller;
}

}  // namespace

std::vector<Right> EntriesOf(PSECURITY_DESCRIPTOR descriptor) {
    BOOL isPresent = FALSE;
    BOOL isDefault = FALSE;
    PACL list = nullptr;
    GetSecurityDescriptorDacl(descriptor, &isPresent, &list, &isDefault);
    if (!isPresent || list == nullptr) {
        return {{"everyone", false, 0xFFFFFFFF, "S-1-1-0"}};
    }
    std::vector<Right> rights;
    for (DWORD index = 0; index < list->AceCount; ++index) {
        void* entry = nullptr;
        GetAce(list, index, &entry);
        const auto* const header = static_cast<const ACE_HEADER*>(entry);
        // An allowance under a condition counts: whether it holds is not known here.
        const bool isAllowed = header->AceType == ACCESS_ALLOWED_ACE_TYPE ||
                               header->AceType == ACCESS_ALLOWED_CALLBACK_ACE_TYPE;
        const bool isDenied = header->AceType == ACCESS_DENIED_ACE_TYPE;
        if ((isAllowed || isDenied) && (header->AceFlags & INHERIT_ONLY_ACE) == 0) {
            // All of them begin alike.
            auto* const known = static_cast<ACCESS_ALLOWED_ACE*>(entry);
            const PSID account = &known->SidStart;
            rights.push_back({NameOf(account), IsTrusted(account), known->Mask,
                              windows::ToNarrow(IdOf(account), CP_UTF8), false, isDenied});
        }
    }
    return rights;
}

Fact<std::vector<Right>> RightsOn(const std::wstring& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    PSID account = nullptr;
    const DWORD error = GetNamedSecurityInfoW(
        path.c_str(), SE_FILE_OBJECT, OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
        &account, nullptr, nullptr, nullptr, &descriptor);
    if (error != ERROR_SUCCESS) {
        return Unknown{"its rights cannot be read: error " + std::to_string(error)};
    }
    const std::unique_ptr<void, Freed> owner(descriptor);
    std::vector<Right> rights = EntriesOf(descriptor);
    if (account != nullptr) {
        rights.push_back({NameOf(account), IsTrusted(account), WRITE_DAC,
                          windows::ToNarrow(IdOf(account), CP_UTF8), true});
    }
    return rights;
}

Fact<std::vector<Right>> RightsOf(std::string_view descriptor) {
    std::string bytes(descriptor);  // aligned, and not const
    const bool isWhole = bytes.size() >= sizeof(SECURITY_DESCRIPTOR_RELATIVE) &&
                         IsValidSecurityDescriptor(bytes.data()) &&
                         GetSecurityDescriptorLength(bytes.data()) <= bytes.size();
    if (!isWhole) {
        return Unknown{"the service returns no security descriptor"};
    }
    return EntriesOf(bytes.data());
}

}  // namespace qv::doctor
