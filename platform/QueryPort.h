#pragma once

#include <string_view>

#include "platform/Row.h"

namespace qv::platform {

/// Where source rows come from. Every call is a query of its own: nothing is kept between calls.
class QueryPort {
public:
    virtual ~QueryPort() = default;

    /// Runs a WQL text in a namespace ("root\CIMv2") and replaces `rows` with what it returned.
    /// Returns Status::noError once the query was submitted: it may have no rows, or fewer than
    /// were to come. Otherwise returns the failure of the connection or of the submission, or
    /// Status::outOfMemory when memory ran out at any point, and there are no rows. Reports these
    /// failures and never raises. May be called from several threads at once.
    virtual Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                               Rows& rows) const = 0;
};

}  // namespace qv::platform
