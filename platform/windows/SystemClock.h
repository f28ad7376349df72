#pragma once

#include "platform/Clock.h"

namespace qv::windows {

/// The time and the time zone of the operating system.
class SystemClock : public platform::Clock {
public:
    std::int64_t SecondsSince1970() const override;
    platform::LocalTime Local() const override;

    /// Returns the system's time zone, in standard time if the system does not know the season.
    platform::TimeZone Zone() const override;
};

}  // namespace qv::windows
