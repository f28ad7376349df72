#include "qvsata/StopRequest.h"

#include "platform/windows/Handle.h"

namespace qv::tool {
namespace {

// The system calls the handler on a thread of its own and hands it nothing.
HANDLE MadeEvent() {
    static const windows::KernelHandle made(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return made.Get();
}

BOOL WINAPI TakeRequest(DWORD control) {
    const bool isFirst = WaitForSingleObject(MadeEvent(), 0) != WAIT_OBJECT_0;
    if ((control != CTRL_C_EVENT && control != CTRL_BREAK_EVENT) || !isFirst) {
        return FALSE;
    }
    SetEvent(MadeEvent());
    return TRUE;
}

}  // namespace

StopRequest::StopRequest() {
    ResetEvent(MadeEvent());
    SetConsoleCtrlHandler(TakeRequest, TRUE);
}

StopRequest::~StopRequest() {
    SetConsoleCtrlHandler(TakeRequest, FALSE);
}

HANDLE StopRequest::Made() const {
    return MadeEvent();
}

}  // namespace qv::tool
