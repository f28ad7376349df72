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
    constexpr int lineLevel = 2;
    constexpr int highestLevel = 3;
    if (log_.Level() <= highestLevel) {
        std::string line = "LoggedQueryPort::RunWqlQuery| failed in ";
        line.append(nameSpace).append(": ").append(query);
        log_.Write(lineLevel, line);
    }
} catch (const std::bad_alloc&) {
    // The query's own status matters more than a line that could not be built.
}

}  // namespace qv
