#pragma once

#include <sddl.h>
#include <windows.h>

#include "platform/windows/Handle.h"

namespace qv::test {

/// While it lives, a mutex of this name exists, and nobody may open it.
class DeniedMutex {
public:
    explicit DeniedMutex(const wchar_t* name) {
        PSECURITY_DESCRIPTOR nobody = nullptr;
        ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:", SDDL_REVISION_1, &nobody,
                                                             nullptr);
        SECURITY_ATTRIBUTES attributes = {sizeof(attributes), nobody, FALSE};
        mutex_ = windows::KernelHandle(CreateMutexW(&attributes, FALSE, name));
        LocalFree(nobody);
    }

private:
    windows::KernelHandle mutex_;
};

}  // namespace qv::test
