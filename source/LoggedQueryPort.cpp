#include "source/LoggedQueryPort.h"

#include <string>

namespace qv {

platform::QueryResult LoggedQueryPort::RunWqlQuery(std::string_view nameSpace,
                                                   std::string_view query,
                                                   platform::Rows& rows) const {
    constexpr int lineLevel = 2;
    constexpr int highestLevel = 3;
    const platform::QueryResult result = queries_.RunWqlQuery(nameSpace, query, rows);
    if (result == platform::QueryResult::failed && log_.Level() <= highestLevel) {
        std::string line = "LoggedQueryPort::RunWqlQuery| failed in ";
        line.append(nameSpace).append(": ").append(query);
        log_.Write(lineLevel, line);
    }
    return result;
}

}  // namespace qv
