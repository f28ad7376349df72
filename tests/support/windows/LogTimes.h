#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace qv::test {

/// Returns a local time, to the millisecond, as a number that increases with time.
inline std::uint64_t OrderedTime(unsigned year, unsigned month, unsigned day, unsigned hour,
                                 unsigned minute, unsigned second, unsigned millisecond) {
    std::uint64_t time = year;
    time = time * 100 + month;
    time = time * 100 + day;
    time = time * 100 + hour;
    time = time * 100 + minute;
    time = time * 100 + second;
    return time * 1000 + millisecond;
}

inline std::uint64_t LocalTimeNow() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return OrderedTime(now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond,
                       now.wMilliseconds);
}

/// Returns the time in a regular expression's match of seven groups of digits: month, day, year,
/// hour, minute, second, millisecond.
template <typename Match>
std::uint64_t TimeOf(const Match& match) {
    const auto number = [&](std::size_t group) {
        return static_cast<unsigned>(std::stoul(match[group].str()));
    };
    return OrderedTime(number(3), number(1), number(2), number(4), number(5), number(6), number(7));
}

}  // namespace qv::test
