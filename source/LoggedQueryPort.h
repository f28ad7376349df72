#pragma once

#include "platform/LogPort.h"
#include "platform/QueryPort.h"

namespace qv {

/// A query port that logs each query that failed to be submitted. Such a query is published as an
/// empty result, so only the log tells a broken machine from an empty one.
///
/// The line is "LoggedQueryPort::RunWqlQuery| failed in <namespace>: <query>", at level 2, written
/// while the log's level is 3 or lower. If memory runs out for the line, it is lost.
class LoggedQueryPort : public platform::QueryPort {
public:
    /// Both arguments must outlive the object.
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
