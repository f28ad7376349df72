#include "provider/UtilityLog.h"

namespace qv::provider {

constinit UtilityLog utilityLog;

void UtilityLog::Attach(ProviderLog& log) {
    level_ = static_cast<int>(log.Level());
    log_ = &log;
}

void UtilityLog::Write(int level, std::string_view text) {
    ProviderLog* log = log_;
    if (log == nullptr) {
        return;
    }
    if (level >= static_cast<int>(LogLevel::error)) {
        log->Failure(std::string_view{}, text);
    } else {
        log->Plain(std::string_view{}, text);
    }
}

}  // namespace qv::provider
