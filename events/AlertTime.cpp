#include "events/AlertTime.h"

#include <array>
#include <cstdio>

namespace qv {
namespace {

std::string FormatLocalTime(const platform::LocalTime& time) {
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%04u%02u%02u%02u%02u%02u.%03u000", time.year,
                  time.month, time.day, time.hour, time.minute, time.second, time.millisecond);
    return text.data();
}

std::int32_t OffsetFromUtc(const platform::TimeZone& zone) {
    return -(zone.bias + (zone.daylightTime ? zone.daylightBias : zone.standardBias));
}

}  // namespace

std::string FormatIndicationTime(const platform::LocalTime& time, const platform::TimeZone& zone) {
    std::array<char, 16> offset{};
    std::snprintf(offset.data(), offset.size(), "%+.3d", OffsetFromUtc(zone));
    return FormatLocalTime(time) + offset.data();
}

std::string FormatEventTime(const platform::LocalTime& time) {
    return FormatLocalTime(time) + "-000";
}

}  // namespace qv
