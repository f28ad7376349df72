#include "platform/windows/KernelMutex.h"

namespace qv::windows {

KernelMutex::KernelMutex(const wchar_t* name) : mutex_(CreateMutexW(nullptr, FALSE, name)) {
    if (!mutex_) {
        mutex_ = KernelHandle(CreateMutexW(nullptr, FALSE, nullptr));
    }
}

bool KernelMutex::TryAcquireFor(std::chrono::milliseconds limit) {
    return WaitForSingleObject(mutex_.Get(), static_cast<DWORD>(limit.count())) != WAIT_TIMEOUT;
}

void KernelMutex::Release() {
    ReleaseMutex(mutex_.Get());
}

}  // namespace qv::windows
