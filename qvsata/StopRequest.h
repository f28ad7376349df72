#pragma once

#include <windows.h>

namespace qv::tool {

/// While it lives, the first Ctrl+C (or Ctrl+Break) is a request to come to an end and not the end
/// of the program; a second one ends it at once. One at a time.
class StopRequest {
public:
    StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;
    ~StopRequest();

    /// A kernel object that is signalled once the request was made.
    HANDLE Made() const;
};

}  // namespace qv::tool
