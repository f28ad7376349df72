#include "qvsata/wql/WqlNumber.h"

#include <charconv>
#include <cmath>
#include <concepts>
#include <utility>

namespace qv::service {
namespace {

constexpr double beyondUnsigned = 0x1p64;
constexpr double lowestSigned = -0x1p63;

template <typename Number>
std::optional<WqlNumber> ReadAll(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isRead = error == std::errc{} && end == text.data() + text.size();
    return isRead ? std::optional<WqlNumber>(number) : std::nullopt;
}

struct CompareValues {
    template <std::integral Left, std::integral Right>
    std::partial_ordering operator()(Left left, Right right) const {
        return std::cmp_less(left, right)    ? std::partial_ordering::less
               : std::cmp_equal(left, right) ? std::partial_ordering::equivalent
                                             : std::partial_ordering::greater;
    }

    std::partial_ordering operator()(double left, double right) const { return left <=> right; }

    // A real number in the range of whole numbers is compared by its whole part, then by the rest.
    template <std::integral Whole>
    std::partial_ordering operator()(Whole whole, double real) const {
        if (real >= beyondUnsigned) {
            return std::partial_ordering::less;
        }
        if (real < lowestSigned) {
            return std::partial_ordering::greater;
        }
        const double floor = std::floor(real);
        const std::partial_ordering order =
            floor < 0 ? operator()(whole, static_cast<std::int64_t>(floor)) :
                      operator()(whole, static_cast<std::uint64_t>(floor));
        return order == 0 && real > floor ? std::partial_ordering::less : order;
    }

    template <std::integral Whole>
    std::partial_ordering operator()(double real, Whole whole) const {
        return 0 <=> operator()(whole, real);
    }
};

}  // namespace

std::optional<WqlNumber> ParseNumber(std::string_view text) {
    // Blanks, "inf" and hexadecimal digits are refused; from_chars does not read a plus sign.
    if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return std::nullopt;
    }
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    if (auto whole = ReadAll<std::uint64_t>(text)) {
        return whole;
    }
    if (auto negative = ReadAll<std::int64_t>(text)) {
        return negative;
    }
    return ReadAll<double>(text);
}

std::partial_ordering CompareNumbers(const WqlNumber& left, const WqlNumber& right) {
    return std::visit(CompareValues{}, left, right);
}

}  // namespace qv::service
