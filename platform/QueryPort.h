#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include "platform/Row.h"

namespace qv::platform {

/// One of the rows of a query, and how many there are.
struct FoundRow {
    std::shared_ptr<const Row> row;  ///< null if none was found
    std::size_t rowCount = 0;        ///< 0 also if the query failed
};

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

    /// Runs "SELECT * FROM className" for a caller that needs only the first row whose property is
    /// exactly a text; a row without a text there has the empty one. Returns nothing, and has run
    /// nothing, if the port has no faster way than to return all rows. Never throws.
    virtual std::optional<FoundRow> FindRow(std::string_view /*nameSpace*/,
                                            std::string_view /*className*/,
                                            std::string_view /*property*/,
                                            std::string_view /*text*/) const {
        return std::nullopt;
    }
};

}  // namespace qv::platform
