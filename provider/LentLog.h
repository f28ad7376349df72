#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string_view>

#include "platform/LogPort.h"
#include "wmiUtil/LegacyLog.h"

namespace qv::provider {

/// Opens the legacy log of a new provider object. Returns null if memory runs out: its lines are
/// then lost.
std::shared_ptr<const LegacyLog> OpenLegacyLog(std::string_view prefix);

/// The legacy log of the provider object that was initialised last, at the common log's level of
/// that moment. Silent before.
class LentLog : public platform::LogPort {
public:
    /// `guard` must outlive the object; it is held only while a pointer is copied. Monitor threads,
    /// which may be terminated at any point, write to such a log. MonitorThreads holds this guard
    /// while it stops them, so a terminated thread never leaves it locked; the lock inside an
    /// atomic pointer would be out of its reach.
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
