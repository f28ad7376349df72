#pragma once

#include <chrono>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace qv::service {

/// A value of CIM type datetime: a point in time, an interval, or a date of which asterisks leave a
/// part open.
class WqlDateTime {
public:
    /// Parses `yyyymmddHHMMSS.mmmmmmsUUU` (an asterisk is an open digit) or an interval
    /// `ddddddddHHMMSS.mmmmmm:000`. Returns nothing for any other text or a date that no calendar
    /// has.
    static std::optional<WqlDateTime> Parse(std::string_view text);

    /// Parses as Parse does, and also `yyyymmdd` and `yyyy-mm-dd` (with -, / or .), each optionally
    /// followed by a blank and `HH:MM` or `HH:MM:SS`; these are in UTC.
    static std::optional<WqlDateTime> ParseConstant(std::string_view text);

    bool HasOpenParts() const { return !time_; }

    /// Compares points in time by time, whatever their offsets from UTC, and intervals by length.
    /// Any other two values are equal if they are the same text, and otherwise unordered.
    std::partial_ordering operator<=>(const WqlDateTime& other) const;

private:
    using Microseconds = std::chrono::microseconds;

    std::string text_;
    bool isInterval_ = false;
    std::optional<Microseconds> time_;  ///< since 1970 in UTC, or the length; none if it is open
};

}  // namespace qv::service
