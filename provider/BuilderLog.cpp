#include "provider/BuilderLog.h"

#include "log/ProviderLog.h"

namespace qv::provider {

int BuilderLog::Level() const {
    return static_cast<int>(commonLog.Level());
}

void BuilderLog::Write(int level, std::string_view text) {
    commonLog.Write(std::string_view{}, static_cast<LogLevel>(level), text);
}

}  // namespace qv::provider
