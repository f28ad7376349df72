#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string_view>

#include "platform/LogPort.h"
#include "wmiUtil/LegacyLog.h"

namespace qv::provider {

/// The legacy log as a provider object opens it when it is made. Null without memory: its lines are
/// lost then.
std::shared_ptr<const LegacyLog> OpenLegacyLog(std::string_view prefix);

/// A log that a provider object lends when it is initialised: its legacy log, under the level that
/// the common log has then. Silent before.
class LentLog : public platform::LogPort {
public:
    /// `guard`, which outlives the object, is held for a copy at a time. Monitor threads, which may
    /// be ended at any point, write to a log like this: the guard, not an atomic pointer with a
    /// lock of its own, keeps what they hold from staying locked.
    explicit LentLog(std::mutex& guard) : guard_(guard) {}

    void Attach(std::shared_ptr<const LegacyLog> log, LogLevel level);

    LogLevel Level() const override { return level_; }
    void Write(LogLevel level, std::string_view text) override;

private:
    std::mutex& guard_;
    std::atomic<LogLevel> level_ = LogLevel::silent;
    std::shared_ptr<const LegacyLog> log_;
};

}  // namespace qv::provider
