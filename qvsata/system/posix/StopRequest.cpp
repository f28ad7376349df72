#include "qvsata/system/StopRequest.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <thread>

namespace qv::tool {
namespace {

// A signal handler may do little more than write a byte; the listener makes the request of it.
constexpr char stopByte = 's';
constexpr char endByte = 'e';
std::array<int, 2> bytes{-1, -1};
std::thread listener;

struct sigaction usualAction {};

void Send(char byte) {
    const ssize_t written = write(bytes[1], &byte, 1);
    static_cast<void>(written);
}

void TakeRequest(int) {
    Send(stopByte);
}

/// Waits for a byte.
void Listen(std::stop_source source) {
    char byte = endByte;
    while (read(bytes[0], &byte, 1) < 0 && errno == EINTR) {
    }
    if (byte == stopByte) {
        source.request_stop();
    }
}

}  // namespace

StopRequest::StopRequest() {
    if (pipe2(bytes.data(), O_CLOEXEC) != 0) {
        return;
    }
    listener = std::thread(Listen, source_);
    struct sigaction action {};
    action.sa_handler = TakeRequest;
    action.sa_flags = static_cast<int>(SA_RESETHAND) | SA_RESTART;
    sigaction(SIGINT, &action, &usualAction);
}

StopRequest::~StopRequest() {
    if (!listener.joinable()) {
        return;
    }
    sigaction(SIGINT, &usualAction, nullptr);
    Send(endByte);
    listener.join();
    for (const int end : bytes) {
        close(end);
    }
}

}  // namespace qv::tool
