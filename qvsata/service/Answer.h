#pragma once

#include <cstddef>
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

/// The first object of an answer that has a text, and how many objects the answer has.
struct FoundObject {
    Answer answer;  ///< holds that object, or none
    std::size_t objectCount = 0;
};

/// Returns the answer to a failed request to a provider. The message is "request: meaning of the
/// status", followed by the text of the provider's exception, if any.
Answer FailedRequest(Status status, std::string_view request, std::string_view exception = {});

}  // namespace qv::service
