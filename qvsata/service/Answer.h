#pragma once

#include <string>
#include <string_view>

#include "platform/Status.h"
#include "qvsata/cim/Object.h"

namespace qv::service {

/// What a request to a namespace returned.
struct Answer {
    Status status = Status::noError;
    std::string message;  ///< one line on what failed; empty on success
    ObjectList objects;   ///< in order
};

/// Returns the answer to a request to a provider that failed: "request: what the status means", and
/// what the provider raised, if it raised an exception.
Answer FailedRequest(Status status, std::string_view request, std::string_view exception = {});

}  // namespace qv::service
