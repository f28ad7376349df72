#pragma once

#include <string>
#include <string_view>

#include "platform/Status.h"
#include "qvsata/cim/Object.h"

namespace qv::service {

/// The result of a request to a namespace.
struct Answer {
    Status status = Status::noError;
    std::string message;  ///< one line that describes the failure; empty on success
    ObjectList objects;   ///< in order
    /// The class that could not be read, where the request does not name it: a class to which an
    /// association leads, or the class of a path.
    std::string unreadClass = {};
};

/// Returns the answer to a failed request to a provider. The message is "request: meaning of the
/// status", followed by the text of the provider's exception, if any.
Answer FailedRequest(Status status, std::string_view request, std::string_view exception = {});

}  // namespace qv::service
