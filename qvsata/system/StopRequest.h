#pragma once

#include <chrono>

namespace qv::tool {

/// For its lifetime, the first Ctrl+C (or Ctrl+Break) is a request to stop instead of the end of
/// the program; the second one ends the program at once. At most one object at a time.
class StopRequest {
public:
    StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;
    ~StopRequest();
};

/// Waits for a stop request, at most for the time `longest`. Returns whether it was made.
bool WaitForStop(std::chrono::milliseconds longest);

}  // namespace qv::tool
