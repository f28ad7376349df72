#include "provider/LentLog.h"

#include <exception>
#include <mutex>

#include "provider/EventProcess.h"

namespace qv::provider {

std::shared_ptr<const LegacyLog> OpenLegacyLog(std::string_view prefix) try {
    return std::make_shared<const LegacyLog>(prefix);
} catch (const std::exception&) {
    return nullptr;
}

// Monitor threads, which may be ended at any point, write to a log like this: the guard, not an
// atomic pointer with a lock of its own, keeps what they hold from staying locked.

void LentLog::Attach(std::shared_ptr<const LegacyLog> log, LogLevel level) {
    const std::lock_guard guard(EventGuard());
    log_.swap(log);
    level_ = level;
}

void LentLog::Write(LogLevel level, std::string_view text) {
    std::shared_ptr<const LegacyLog> log;
    {
        const std::lock_guard guard(EventGuard());
        log = log_;
    }
    if (log != nullptr) {
        log->CommonLogEntry(text, static_cast<std::uint32_t>(level));
    }
}

}  // namespace qv::provider
