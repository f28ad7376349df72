#include "qvsata/system/StopRequest.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace qv::tool {
namespace {

// The signal handler may use only this: it makes the request by writing a byte.
std::array<int, 2> requests{-1, -1};

struct sigaction usualAction {};

void TakeRequest(int) {
    const ssize_t written = write(requests[1], "", 1);
    static_cast<void>(written);
}

}  // namespace

StopRequest::StopRequest() {
    if (pipe2(requests.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = TakeRequest;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, &usualAction);
}

StopRequest::~StopRequest() {
    sigaction(SIGINT, &usualAction, nullptr);
    for (const int end : requests) {
        close(end);
    }
}

bool WaitForStop(std::chrono::milliseconds longest) {
    pollfd request{requests[0], POLLIN, 0};
    return poll(&request, 1, static_cast<int>(longest.count())) > 0;
}

}  // namespace qv::tool
