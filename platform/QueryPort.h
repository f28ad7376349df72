#pragma once

#include <string_view>

#include "platform/Row.h"

namespace qv::platform {

/// The source of rows. Every call runs a query of its own; nothing is cached.
class QueryPort {
public:
    virtual ~QueryPort() = default;

    /// Runs a WQL query in a namespace ("root\CIMv2") and replaces `rows` with its result. Returns
    /// Status::noError once the query was submitted, even if it returns no rows or breaks off after
    /// some. Otherwise returns the failure of the connection or of the submission, or
    /// Status::outOfMemory if memory ran out at any point; `rows` is then empty. Reports these
    /// failures and never throws. May be called from several threads at once.
    virtual Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                               Rows& rows) const = 0;
};

}  // namespace qv::platform
