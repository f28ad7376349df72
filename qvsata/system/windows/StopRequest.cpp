#include "qvsata/system/StopRequest.h"

#include <windows.h>

namespace qv::tool {
namespace {

// Static: the system calls the handler on a thread of its own and passes it no context.
std::stop_source& Source() {
    static std::stop_source source;
    return source;
}

BOOL WINAPI TakeRequest(DWORD control) {
    const bool isRequest = control == CTRL_C_EVENT || control == CTRL_BREAK_EVENT;
    return isRequest && Source().request_stop() ? TRUE : FALSE;
}

}  // namespace

StopRequest::StopRequest() {
    Source() = source_;
    SetConsoleCtrlHandler(TakeRequest, TRUE);
}

StopRequest::~StopRequest() {
    SetConsoleCtrlHandler(TakeRequest, FALSE);
}

}  // namespace qv::tool
