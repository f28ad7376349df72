#pragma once

#include <chrono>

namespace qv::tool {

/// While it lives, the first Ctrl+C (or Ctrl+Break) is a request to come to an end and not the end
/// of the program; a second one ends it at once. One at a time.
class StopRequest {
public:
    StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;
    ~StopRequest();
};

/// Waits until a StopRequest is made, at most so long. True when it was made.
bool WaitForStop(std::chrono::milliseconds longest);

}  // namespace qv::tool
