#pragma once

#include "platform/Clock.h"
#include "platform/NamedLock.h"
#include "platform/SystemFacts.h"

namespace qv::service {

/// The time of this computer.
class LocalClock final : public platform::Clock {
public:
    std::int64_t SecondsSince1970() const override;
    platform::LocalTime Local() const override;
    platform::TimeZone Zone() const override;
};

/// What a recorded computer says of itself beside its names: nothing was recorded. New identifiers
/// are random ones.
class RecordedFacts final : public platform::SystemFacts {
public:
    platform::OsVersion Version() const override { return {}; }
    Status NetworkAddresses(std::vector<std::string>& addresses) const override;
    Status NewGuid(std::string& guid) const override;
};

/// A lock that nobody else asks for.
class OwnLock final : public platform::NamedLock {
public:
    bool TryAcquireFor(std::chrono::milliseconds) override { return true; }
    void Release() override {}
};

}  // namespace qv::service
