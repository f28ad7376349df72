#include "platform/windows/SystemClock.h"

#include <windows.h>

#include <chrono>

namespace qv::windows {

std::int64_t SystemClock::SecondsSince1970() const {
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

platform::LocalTime SystemClock::Local() const {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear,   now.wMonth,  now.wDay,         now.wHour,
            now.wMinute, now.wSecond, now.wMilliseconds};
}

platform::TimeZone SystemClock::Zone() const {
    TIME_ZONE_INFORMATION zone{};
    const DWORD season = GetTimeZoneInformation(&zone);
    return {zone.Bias, zone.StandardBias, zone.DaylightBias, season == TIME_ZONE_ID_DAYLIGHT};
}

}  // namespace qv::windows
