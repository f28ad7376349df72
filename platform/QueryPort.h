#pragma once

#include <string_view>

#include "platform/Row.h"

namespace qv::platform {

/// Whether a query reached the management service.
enum class QueryResult {
    submitted = 0,  ///< the query ran; there may be no rows, or fewer than there were to come
    failed = -1,    ///< the connection or the submission failed; there are no rows
};

/// Where source rows come from. Every call is a query of its own: nothing is kept between calls.
class QueryPort {
public:
    virtual ~QueryPort() = default;

    /// Runs a WQL text in a namespace ("root\CIMv2") and replaces `rows` with what it returned.
    /// Raises only where memory runs out; may be called from several threads at once.
    virtual QueryResult RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                    Rows& rows) const = 0;
};

}  // namespace qv::platform
