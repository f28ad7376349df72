#include "provider/BuilderLog.h"

#include "log/ProviderLog.h"

namespace qv::provider {

int BuilderLog::Level() const {
    return static_cast<int>(commonLog.Level());
}

void BuilderLog::Write(int level, std::string_view text) {
    if (level >= static_cast<int>(LogLevel::error)) {
        commonLog.Failure(std::string_view{}, text);
    } else {
        commonLog.Plain(std::string_view{}, text);
    }
}

}  // namespace qv::provider
