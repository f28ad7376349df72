#pragma once

#include <string>

#include "platform/Clock.h"

namespace qv {

/// Returns a date and time in the format of the management service: year to microseconds and the
/// offset from UTC in minutes, "20240704090503.007000+060".
std::string FormatIndicationTime(const platform::LocalTime& time, const platform::TimeZone& zone);

/// Returns the time of an event in the same format, with the offset "-000" whatever the zone, on
/// purpose: the readers of these events take it for local time.
std::string FormatEventTime(const platform::LocalTime& time);

}  // namespace qv
