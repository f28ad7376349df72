#include "qvsata/wql/WqlDateTime.h"

#include <algorithm>
#include <charconv>

namespace qv::service {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::microseconds;
using std::chrono::minutes;
using std::chrono::seconds;

/// Returns whether a text has a shape: 'd' stands for a digit, 'o' for a digit or an asterisk, 's'
/// for a sign, any other character for itself.
bool HasShape(std::string_view text, std::string_view shape) {
    return std::ranges::equal(text, shape, [](char character, char kind) {
        const bool isDigit = character >= '0' && character <= '9';
        switch (kind) {
            case 'd':
                return isDigit;
            case 'o':
                return isDigit || character == '*';
            case 's':
                return character == '+' || character == '-';
            default:
                return character == kind;
        }
    });
}

/// Returns the number that `count` digits from `begin` on form.
int Digits(std::string_view text, std::size_t begin, std::size_t count) {
    int number = 0;
    std::from_chars(text.data() + begin, text.data() + begin + count, number);
    return number;
}

/// Returns the days since 1970 of yyyymmdd.
std::optional<microseconds> DateOf(std::string_view text) {
    const std::chrono::year_month_day date{
        std::chrono::year(Digits(text, 0, 4)),
        std::chrono::month(static_cast<unsigned>(Digits(text, 4, 2))),
        std::chrono::day(static_cast<unsigned>(Digits(text, 6, 2)))};
    return date.ok() ? std::optional<microseconds>(std::chrono::sys_days(date).time_since_epoch())
                     : std::nullopt;
}

/// Returns the time of HHMMSS.mmmmmm, which begins at the eighth byte.
std::optional<microseconds> TimeOf(std::string_view text) {
    const hours hour(Digits(text, 8, 2));
    const minutes minute(Digits(text, 10, 2));
    const seconds second(Digits(text, 12, 2));
    if (hour >= days(1) || minute >= hours(1) || second >= minutes(1)) {
        return std::nullopt;
    }
    return hour + minute + second + microseconds(Digits(text, 15, 6));
}

std::optional<microseconds> Sum(std::optional<microseconds> left,
                                std::optional<microseconds> right) {
    return left && right ? std::optional(*left + *right) : std::nullopt;
}

/// Returns a date without its separators if they are equal; the text itself if it has none.
std::string WithoutSeparators(std::string_view date) {
    std::string digits(date);
    if (HasShape(date, "dddd-dd-dd") || HasShape(date, "dddd/dd/dd") ||
        HasShape(date, "dddd.dd.dd")) {
        digits.erase(7, 1).erase(4, 1);
    }
    return digits;
}

}  // namespace

std::optional<WqlDateTime> WqlDateTime::Parse(std::string_view text) {
    WqlDateTime parsed;
    parsed.text_ = text;
    if (HasShape(text, "dddddddddddddd.dddddd:000")) {
        parsed.isInterval_ = true;
        parsed.time_ = Sum(days(Digits(text, 0, 8)), TimeOf(text));
    } else if (HasShape(text, "dddddddddddddd.ddddddsddd")) {
        const minutes offset(Digits(text, 22, 3));
        parsed.time_ = Sum(Sum(DateOf(text), TimeOf(text)), text[21] == '+' ? -offset : offset);
    } else if (HasShape(text, "oooooooooooooo.oooooosooo")) {
        return parsed;
    }
    return parsed.time_ ? std::optional(parsed) : std::nullopt;
}

std::optional<WqlDateTime> WqlDateTime::ParseConstant(std::string_view text) {
    if (auto parsed = Parse(text)) {
        return parsed;
    }
    const std::size_t dateEnd = std::min(text.find(' '), text.size());
    const std::string date = WithoutSeparators(text.substr(0, dateEnd));
    if (!HasShape(date, "dddddddd")) {
        return std::nullopt;
    }
    std::string time(text.substr(dateEnd));
    if (time.empty()) {
        time = " 00:00:00";
    } else if (HasShape(time, " dd:dd")) {
        time += ":00";
    }
    if (!HasShape(time, " dd:dd:dd")) {
        return std::nullopt;
    }
    time.erase(6, 1).erase(3, 1).erase(0, 1);
    return Parse(date + time + ".000000+000");
}

std::partial_ordering WqlDateTime::operator<=>(const WqlDateTime& other) const {
    if (time_ && other.time_ && isInterval_ == other.isInterval_) {
        return *time_ <=> *other.time_;
    }
    return text_ == other.text_ ? std::partial_ordering::equivalent
                                : std::partial_ordering::unordered;
}

}  // namespace qv::service
