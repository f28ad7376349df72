#include "qvsata/wql/WqlConditions.h"

#include <algorithm>
#include <charconv>
#include <compare>
#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

#include "qvsata/wql/WqlLike.h"
#include "source/Text.h"

namespace qv::service {
namespace {

// A condition that is a function of the object.
template <typename Function>
class FunctionCondition : public WqlCondition {
public:
    explicit FunctionCondition(Function function) : function_(std::move(function)) {}
    bool HoldsFor(const PropertyReader& object) const override { return function_(object); }

private:
    Function function_;
};

template <typename Function>
ConditionPtr MakeCondition(Function function) {
    return std::make_shared<FunctionCondition<Function>>(std::move(function));
}

bool Satisfies(std::partial_ordering order, Comparison comparison) {
    switch (comparison) {
        case Comparison::equal:
            return order == 0;
        case Comparison::notEqual:
            return order < 0 || order > 0;
        case Comparison::less:
            return order < 0;
        case Comparison::greater:
            return order > 0;
        case Comparison::lessOrEqual:
            return order <= 0;
        case Comparison::greaterOrEqual:
            return order >= 0;
    }
    return false;
}

// Null and arrays are not comparable with anything.
template <typename T>
std::optional<long double> NumberOf(const T& value) {
    if constexpr (std::is_arithmetic_v<T>) {
        return static_cast<long double>(value);
    } else if constexpr (std::is_same_v<T, std::string>) {
        if (EqualsIgnoringCase(value, "TRUE") || EqualsIgnoringCase(value, "FALSE")) {
            return EqualsIgnoringCase(value, "TRUE") ? 1 : 0;
        }
        return ParseNumber(value);
    } else {
        return std::nullopt;
    }
}

// Two texts are compared as texts, anything else as numbers if both sides are numbers.
struct Compare {
    std::partial_ordering operator()(const std::string& left, const std::string& right) const {
        return FoldCase(left) <=> FoldCase(right);
    }

    template <typename Left, typename Right>
    std::partial_ordering operator()(const Left& left, const Right& right) const {
        const auto leftNumber = NumberOf(left);
        const auto rightNumber = NumberOf(right);
        if (!leftNumber || !rightNumber) {
            return std::partial_ordering::unordered;
        }
        return *leftNumber <=> *rightNumber;
    }
};

CimValue ReadOrNull(const PropertyReader& object, std::string_view name) {
    return object(name).value_or(CimValue{});
}

}  // namespace

ConditionPtr CompareProperty(std::string name, Comparison comparison, WqlConstant constant) {
    return MakeCondition([name = std::move(name), comparison,
                          constant = std::move(constant)](const PropertyReader& object) {
        return Satisfies(std::visit(Compare{}, ReadOrNull(object, name), constant), comparison);
    });
}

ConditionPtr MatchProperty(std::string name, const std::string& pattern) {
    return MakeCondition(
        [name = std::move(name), like = LikePattern(pattern)](const PropertyReader& object) {
            const CimValue value = ReadOrNull(object, name);
            const auto* text = std::get_if<std::string>(&value);
            return text != nullptr && like.Matches(*text);
        });
}

ConditionPtr PropertyIsNull(std::string name) {
    return MakeCondition([name = std::move(name)](const PropertyReader& object) {
        return std::holds_alternative<std::monostate>(ReadOrNull(object, name));
    });
}

ConditionPtr IsOfClass(std::string className) {
    return MakeCondition([className = std::move(className)](const PropertyReader& object) {
        const CimValue own = ReadOrNull(object, "__CLASS");
        const CimValue parents = ReadOrNull(object, "__DERIVATION");
        const auto* ownName = std::get_if<std::string>(&own);
        const auto* parentNames = std::get_if<std::vector<std::string>>(&parents);
        const auto isWanted = [&className](const std::string& candidate) {
            return EqualsIgnoringCase(candidate, className);
        };
        return (ownName != nullptr && isWanted(*ownName)) ||
               (parentNames != nullptr && std::ranges::any_of(*parentNames, isWanted));
    });
}

ConditionPtr AllOf(std::vector<ConditionPtr> conditions) {
    return MakeCondition([conditions = std::move(conditions)](const PropertyReader& object) {
        return std::ranges::all_of(
            conditions, [&object](const auto& condition) { return condition->HoldsFor(object); });
    });
}

ConditionPtr AnyOf(std::vector<ConditionPtr> conditions) {
    return MakeCondition([conditions = std::move(conditions)](const PropertyReader& object) {
        return std::ranges::any_of(
            conditions, [&object](const auto& condition) { return condition->HoldsFor(object); });
    });
}

ConditionPtr Not(ConditionPtr condition) {
    return MakeCondition([condition = std::move(condition)](const PropertyReader& object) {
        return !condition->HoldsFor(object);
    });
}

std::optional<long double> ParseNumber(std::string_view text) {
    // Blanks, "inf" and hexadecimal digits are refused; from_chars does not read a plus sign.
    if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return std::nullopt;
    }
    const bool isPlus = text.starts_with('+') && !text.starts_with("+-");
    const char* begin = text.data() + (isPlus ? 1 : 0);
    const char* end = text.data() + text.size();
    // Whole numbers separately: not every C runtime reads a real number with 64 exact bits.
    const bool isMinus = begin != end && *begin == '-';
    std::uint64_t whole = 0;
    const auto wholeRead = std::from_chars(begin + (isMinus ? 1 : 0), end, whole);
    if (wholeRead.ec == std::errc{} && wholeRead.ptr == end) {
        const auto magnitude = static_cast<long double>(whole);
        return isMinus ? -magnitude : magnitude;
    }
    double number = 0;
    const auto read = std::from_chars(begin, end, number);
    if (read.ec != std::errc{} || read.ptr != end) {
        return std::nullopt;
    }
    return number;
}

}  // namespace qv::service
