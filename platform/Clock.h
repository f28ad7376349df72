#pragma once

#include <cstdint>

namespace qv::platform {

/// A moment in the host's local time.
struct LocalTime {
    unsigned year = 0;
    unsigned month = 0;  ///< 1 to 12
    unsigned day = 0;    ///< 1 to 31
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
    unsigned millisecond = 0;
};

/// The host's time zone, in minutes. UTC is the local time plus `bias` plus the bias of the season.
struct TimeZone {
    std::int32_t bias = 0;
    std::int32_t standardBias = 0;
    std::int32_t daylightBias = 0;
    bool daylightTime = false;  ///< daylight saving time is in force now
};

/// The host's clock. Several threads may call it at once.
class Clock {
public:
    virtual ~Clock() = default;

    /// Returns the seconds since the beginning of 1970, UTC.
    virtual std::int64_t SecondsSince1970() const = 0;

    virtual LocalTime Local() const = 0;
    virtual TimeZone Zone() const = 0;
};

}  // namespace qv::platform
