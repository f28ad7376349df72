#pragma once

#include "platform/Clock.h"
#include "platform/LogPort.h"
#include "platform/NamedLock.h"
#include "platform/SystemFacts.h"

namespace qv::service {

// What the provider's core asks of the operating system, answered for a replay.

/// The clock of this computer.
class LocalClock final : public platform::Clock {
public:
    std::int64_t SecondsSince1970() const override;
    platform::LocalTime Local() const override;
    platform::TimeZone Zone() const override;
};

/// The facts of a recorded computer besides its names. None were recorded; new identifiers are
/// random.
class RecordedFacts final : public platform::SystemFacts {
public:
    platform::OsVersion Version() const override { return {}; }
    Status NetworkAddresses(std::vector<std::string>& addresses) const override;
    Status NewGuid(std::string& guid) const override;
};

/// A lock that only this process uses; it is always free.
class OwnLock final : public platform::NamedLock {
public:
    bool TryAcquireFor(std::chrono::milliseconds) override { return true; }
    void Release() override {}
};

/// A log that writes nothing.
class SilentLog final : public platform::LogPort {
public:
    LogLevel Level() const override { return LogLevel::silent; }
    void Write(LogLevel, std::string_view) override {}
};

}  // namespace qv::service
