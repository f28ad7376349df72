#include "provider/LentLog.h"

#include <exception>

namespace qv::provider {

std::shared_ptr<const LegacyLog> OpenLegacyLog(std::string_view prefix) try {
    return std::make_shared<const LegacyLog>(prefix);
} catch (const std::exception&) {
    return nullptr;
}

void LentLog::Attach(std::shared_ptr<const LegacyLog> log, LogLevel level) {
    const std::lock_guard held(guard_);
    log_.swap(log);
    level_ = level;
}

void LentLog::Write(LogLevel level, std::string_view text) {
    std::shared_ptr<const LegacyLog> log;
    {
        const std::lock_guard held(guard_);
        log = log_;
    }
    if (log != nullptr) {
        log->CommonLogEntry(text, level);
    }
}

}  // namespace qv::provider
