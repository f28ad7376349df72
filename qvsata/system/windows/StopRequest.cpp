#include "qvsata/system/StopRequest.h"

#include "platform/windows/Handle.h"
#include "qvsata/system/windows/StopEvent.h"

namespace qv::tool {
namespace {

BOOL WINAPI TakeRequest(DWORD control) {
    const bool isFirst = WaitForSingleObject(StopEvent(), 0) != WAIT_OBJECT_0;
    if ((control != CTRL_C_EVENT && control != CTRL_BREAK_EVENT) || !isFirst) {
        return FALSE;
    }
    SetEvent(StopEvent());
    return TRUE;
}

}  // namespace

// The event is static: the system calls the handler on a thread of its own and passes it no
// context.
HANDLE StopEvent() {
    static const windows::KernelHandle made(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return made.Get();
}

StopRequest::StopRequest() {
    ResetEvent(StopEvent());
    SetConsoleCtrlHandler(TakeRequest, TRUE);
}

StopRequest::~StopRequest() {
    SetConsoleCtrlHandler(TakeRequest, FALSE);
}

bool WaitForStop(std::chrono::milliseconds longest) {
    return WaitForSingleObject(StopEvent(), static_cast<DWORD>(longest.count())) == WAIT_OBJECT_0;
}

}  // namespace qv::tool
