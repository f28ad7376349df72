#include "provider/BuilderLog.h"

#include "log/ProviderLog.h"

namespace qv::provider {

LogLevel BuilderLog::Level() const {
    return commonLog.Level();
}

void BuilderLog::Write(LogLevel level, std::string_view text) {
    commonLog.Write(std::string_view{}, level, text);
}

}  // namespace qv::provider
