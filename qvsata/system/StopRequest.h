#pragma once

#include <stop_token>

namespace qv::tool {

/// For its lifetime, the first Ctrl+C (or Ctrl+Break) is a request to stop instead of the end of
/// the program; the second one ends the program at once. At most one object at a time.
class StopRequest {
public:
    StopRequest();
    StopRequest(const StopRequest&) = delete;
    StopRequest& operator=(const StopRequest&) = delete;
    ~StopRequest();

    /// Returns the token that tells of the request.
    std::stop_token Token() const { return source_.get_token(); }

private:
    std::stop_source source_;
};

}  // namespace qv::tool
