#include "qvsata/mof/MofValue.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace qv::service {
namespace {

struct Range {
    std::uint64_t lowest;  ///< magnitude of the lowest, a negative number or 0
    std::uint64_t highest;
};

template <typename Number>
constexpr Range RangeOf() {
    using Limits = std::numeric_limits<Number>;
    return {Limits::is_signed ? static_cast<std::uint64_t>(Limits::max()) + 1 : 0,
            static_cast<std::uint64_t>(Limits::max())};
}

std::optional<Range> RangeOf(CimType type) {
    switch (type) {
        case CimType::sint8:
            return RangeOf<std::int8_t>();
        case CimType::uint8:
            return RangeOf<std::uint8_t>();
        case CimType::sint16:
            return RangeOf<std::int16_t>();
        case CimType::uint16:
        case CimType::char16:
            return RangeOf<std::uint16_t>();
        case CimType::sint32:
            return RangeOf<std::int32_t>();
        case CimType::uint32:
            return RangeOf<std::uint32_t>();
        case CimType::sint64:
            return RangeOf<std::int64_t>();
        case CimType::uint64:
            return RangeOf<std::uint64_t>();
        default:
            return std::nullopt;
    }
}

bool IsIn(const MofInteger& number, const Range& range) {
    return number.magnitude <= (number.negative ? range.lowest : range.highest);
}

/// Returns whether a type takes the real number.
bool IsIn(double real, CimType type) {
    return type == CimType::real64 ||
           (type == CimType::real32 && std::abs(real) <= std::numeric_limits<float>::max());
}

std::int64_t Signed(const MofInteger& number) {
    return static_cast<std::int64_t>(number.negative ? 0 - number.magnitude : number.magnitude);
}

std::string Decimal(const MofInteger& number) {
    std::string text(number.negative && number.magnitude != 0 ? 1 : 0, '-');
    text += std::to_string(number.magnitude);
    return text;
}

/// `yyyymmddHHMMSS.mmmmmmsUUU`, or an interval `ddddddddHHMMSS.mmmmmm:000`; unknown fields may be
/// asterisks.
bool IsDatetime(std::string_view text) {
    constexpr std::string_view form = "99999999999999.999999+999";
    return std::ranges::equal(text, form, [](char c, char wanted) {
        switch (wanted) {
            case '9':
                return (c >= '0' && c <= '9') || c == '*';
            case '+':
                return c == '+' || c == '-' || c == ':';
            default:
                return c == wanted;
        }
    });
}

/// Converts one literal to a type; returns nothing if it is not a value of it, including null.
std::optional<CimValue> Scalar(const MofLiteral& literal, CimType type) {
    if (const auto* const number = std::get_if<MofInteger>(&literal.value)) {
        if (type == CimType::real32 || type == CimType::real64) {
            const auto magnitude = static_cast<double>(number->magnitude);
            return number->negative ? -magnitude : magnitude;
        }
        const std::optional<Range> range = RangeOf(type);
        if (!range || !IsIn(*number, *range)) {
            return std::nullopt;
        }
        if (type == CimType::sint64 || type == CimType::uint64) {
            return Decimal(*number);
        }
        return Signed(*number);
    }
    if (const auto* const text = std::get_if<std::string>(&literal.value)) {
        const bool fits = type == CimType::string || type == CimType::reference ||
                          (type == CimType::datetime && IsDatetime(*text));
        return fits ? std::optional<CimValue>(*text) : std::nullopt;
    }
    if (const auto* const truth = std::get_if<bool>(&literal.value)) {
        return type == CimType::boolean ? std::optional<CimValue>(*truth) : std::nullopt;
    }
    if (const auto* const real = std::get_if<double>(&literal.value)) {
        return IsIn(*real, type) ? std::optional<CimValue>(*real) : std::nullopt;
    }
    return std::nullopt;
}

template <typename Element>
std::optional<CimValue> Array(const std::vector<MofLiteral>& literals, CimType type) {
    std::vector<Element> elements;
    for (const MofLiteral& literal : literals) {
        const std::optional<CimValue> element = Scalar(literal, type);
        if (!element) {
            return std::nullopt;
        }
        elements.push_back(std::get<Element>(*element));
    }
    return elements;
}

std::optional<CimValue> Array(const std::vector<MofLiteral>& literals, CimType type) {
    switch (type) {
        case CimType::boolean:
            return Array<bool>(literals, type);
        case CimType::real32:
        case CimType::real64:
            return Array<double>(literals, type);
        case CimType::string:
        case CimType::datetime:
        case CimType::reference:
        case CimType::sint64:
        case CimType::uint64:
            return Array<std::string>(literals, type);
        default:
            return Array<std::int64_t>(literals, type);
    }
}

/// Returns the widest type for a qualifier's literal.
CimType LiteralType(const MofLiteral& literal) {
    if (std::holds_alternative<bool>(literal.value)) {
        return CimType::boolean;
    }
    if (std::holds_alternative<double>(literal.value)) {
        return CimType::real64;
    }
    return std::holds_alternative<MofInteger>(literal.value) ? CimType::sint64 : CimType::string;
}

/// Converts whole numbers of a qualifier: checked as 64-bit numbers, but stored as numbers.
std::optional<CimValue> WholeNumbers(const MofInitializer& written) {
    std::vector<std::int64_t> numbers;
    for (const MofLiteral& literal : written.elements) {
        const auto* const number = std::get_if<MofInteger>(&literal.value);
        if (number == nullptr || !IsIn(*number, RangeOf<std::int64_t>())) {
            return std::nullopt;
        }
        numbers.push_back(Signed(*number));
    }
    return written.isArray ? CimValue(std::move(numbers)) : CimValue(numbers.front());
}

}  // namespace

std::optional<CimValue> ToCimValue(const MofInitializer& written, CimType type, bool isArray) {
    if (!written.isArray &&
        std::holds_alternative<std::monostate>(written.elements.front().value)) {
        return CimValue();
    }
    if (written.isAlias || written.isArray != isArray || type == CimType::object) {
        return std::nullopt;
    }
    return isArray ? Array(written.elements, type) : Scalar(written.elements.front(), type);
}

const MofStatus& ValueStatus(const MofInitializer& written, CimType type, bool isArray) {
    const auto holds = [&written](auto accepts) {
        return std::ranges::any_of(written.elements, [accepts](const MofLiteral& literal) {
            return accepts(literal.value);
        });
    };
    if (written.isAlias) {
        return mof_status::unexpectedAlias;
    }
    if (written.isArray && !isArray) {
        return mof_status::unexpectedArray;
    }
    if (holds([](const auto& value) { return std::holds_alternative<std::monostate>(value); })) {
        return mof_status::nullArrayElement;
    }
    const bool isNumber =
        type == CimType::real32
            ? holds([](const auto& value) { return std::holds_alternative<double>(value); })
            : RangeOf(type) && holds([](const auto& value) {
                  return std::holds_alternative<MofInteger>(value);
              });
    return written.isArray == isArray && isNumber ? mof_status::outOfRange
                                                  : mof_status::typeMismatch;
}

std::optional<CimValue> QualifierValue(const std::optional<MofInitializer>& written) {
    if (!written) {
        return CimValue(true);
    }
    if (written->isAlias) {
        return std::nullopt;
    }
    const CimType type =
        written->elements.empty() ? CimType::string : LiteralType(written->elements.front());
    return type == CimType::sint64 ? WholeNumbers(*written)
                                   : ToCimValue(*written, type, written->isArray);
}

}  // namespace qv::service
