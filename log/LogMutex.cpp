#include "log/LogMutex.h"

#include <sddl.h>
#include <windows.h>

#include <memory>

#include "platform/windows/Text.h"

namespace qv {
namespace {

constexpr auto access = L"D:(D;OICI;GA;;;BG)(A;OICI;GA;;;SY)(A;OICI;GA;;;BA)(A;OICI;GA;;;NS)";

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

}  // namespace

std::wstring LogMutexName(std::wstring_view folder, std::wstring_view module) {
    std::wstring place = windows::ToUpper(std::wstring(folder).append(module));
    std::erase(place, L'\\');
    return L"Global\\" + place;
}

std::uint32_t CreateLogMutex(const std::wstring& name, windows::KernelHandle& mutex) {
    PSECURITY_DESCRIPTOR made = nullptr;
    if (!ConvertStringSecurityDescriptorToSecurityDescriptorW(access, SDDL_REVISION_1, &made,
                                                              nullptr)) {
        return GetLastError();
    }
    const std::unique_ptr<void, FreeLocal> descriptor(made);
    SECURITY_ATTRIBUTES attributes = {sizeof(attributes), descriptor.get(), FALSE};
    mutex = windows::KernelHandle(CreateMutexW(&attributes, FALSE, name.c_str()));
    return mutex ? ERROR_SUCCESS : GetLastError();
}

}  // namespace qv
