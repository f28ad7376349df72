#include "source/LoggedQueryPort.h"

#include <new>
#include <string>

namespace qv {

Status LoggedQueryPort::RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                    platform::Rows& rows) const {
    const Status result = queries_.RunWqlQuery(nameSpace, query, rows);
    if (!Succeeded(result)) {
        LogFailure(nameSpace, query);
    }
    return result;
}

void LoggedQueryPort::LogFailure(std::string_view nameSpace, std::string_view query) const try {
    if (TakesLines(log_.Level(), LogLevel::information)) {
        std::string line = "LoggedQueryPort::RunWqlQuery| failed in ";
        line.append(nameSpace).append(": ").append(query);
        log_.Write(LogLevel::verbose, line);
    }
} catch (const std::bad_alloc&) {
    // The query's own status matters more than a line that could not be built.
}

}  // namespace qv
