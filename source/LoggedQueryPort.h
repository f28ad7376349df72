#pragma once

#include "platform/LogPort.h"
#include "platform/QueryPort.h"

namespace qv {

/// A query port that leaves a line about each query that did not reach the management service: what
/// depends on it is published as empty, and nothing else tells an empty machine from a broken one.
///
/// The line is "LoggedQueryPort::RunWqlQuery| failed in <namespace>: <query>", at level 2, while
/// the log's level is 3 or lower. A line that there is no memory for is lost.
class LoggedQueryPort : public platform::QueryPort {
public:
    /// Both outlive this object.
    LoggedQueryPort(const platform::QueryPort& queries, platform::LogPort& log)
        : queries_(queries), log_(log) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override;

private:
    void LogFailure(std::string_view nameSpace, std::string_view query) const;

    const platform::QueryPort& queries_;
    platform::LogPort& log_;
};

}  // namespace qv
