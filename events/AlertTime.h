#pragma once

#include <string>

#include "platform/Clock.h"

namespace qv {

/// A date and time as the management service writes it: year to microseconds and the offset from
/// UTC in minutes, "20240704090503.007000+060".
std::string FormatIndicationTime(const platform::LocalTime& time, const platform::TimeZone& zone);

/// The same for the time of an event, with the offset "-000" whatever the zone, on purpose: those
/// who read these events take it for the local time.
std::string FormatEventTime(const platform::LocalTime& time);

}  // namespace qv
