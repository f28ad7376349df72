#include "qvsata/wql/WqlComparison.h"

#include <compare>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "qvsata/cim/ClassDefinition.h"
#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/wql/WqlDateTime.h"
#include "source/Text.h"

namespace qv::service {
namespace {

enum class TypeKind { number, boolean, text, dateTime, reference, object };

TypeKind KindOf(CimType type) {
    switch (type) {
        case CimType::boolean:
            return TypeKind::boolean;
        case CimType::string:
            return TypeKind::text;
        case CimType::datetime:
            return TypeKind::dateTime;
        case CimType::reference:
            return TypeKind::reference;
        case CimType::object:
            return TypeKind::object;
        default:
            return TypeKind::number;
    }
}

std::string_view ExpectedConstant(TypeKind kind) {
    switch (kind) {
        case TypeKind::number:
            return "a number";
        case TypeKind::boolean:
            return "TRUE or FALSE";
        case TypeKind::text:
            return "a text";
        case TypeKind::dateTime:
            return "a date of the form yyyymmddHHMMSS.mmmmmmsUUU";
        case TypeKind::reference:
            return "an object path";
        case TypeKind::object:
            break;
    }
    return "a simple value";
}

/// One side of a comparison in the form that the property's type compares. std::monostate: the
/// value is not of that type.
using Comparand =
    std::variant<std::monostate, WqlNumber, bool, std::string, WqlDateTime, ObjectPath>;

template <typename T>
Comparand OrNone(std::optional<T> value) {
    return value ? Comparand(*std::move(value)) : Comparand();
}

std::optional<WqlNumber> NumberIn(const WqlConstant& constant) {
    if (const auto* flag = std::get_if<bool>(&constant)) {
        return std::uint64_t{*flag ? 1U : 0U};
    }
    if (const auto* number = std::get_if<WqlNumber>(&constant)) {
        return *number;
    }
    const auto* text = std::get_if<std::string>(&constant);
    return text == nullptr ? std::nullopt : ParseNumber(*text);
}

std::optional<WqlNumber> AsNumber(const WqlConstant& constant, CimType type) {
    std::optional<WqlNumber> number = NumberIn(constant);
    const auto* real = number ? std::get_if<double>(&*number) : nullptr;
    if (real != nullptr && type == CimType::real32) {
        // The 0.1 of a real32 is the one that fits in 32 bits.
        number = static_cast<double>(static_cast<float>(*real));
    }
    return number;
}

std::optional<bool> AsBoolean(const WqlConstant& constant) {
    if (const auto* text = std::get_if<std::string>(&constant)) {
        if (EqualsIgnoringCase(*text, "TRUE") || EqualsIgnoringCase(*text, "FALSE")) {
            return EqualsIgnoringCase(*text, "TRUE");
        }
    }
    const std::optional<WqlNumber> number = NumberIn(constant);
    const auto is = [&number](std::int64_t wanted) {
        return number && CompareNumbers(*number, wanted) == 0;
    };
    return is(0) ? std::optional(false) : is(1) || is(-1) ? std::optional(true) : std::nullopt;
}

Comparand AsType(const WqlConstant& constant, CimType type) {
    const auto* text = std::get_if<std::string>(&constant);
    switch (KindOf(type)) {
        case TypeKind::number:
            return OrNone(AsNumber(constant, type));
        case TypeKind::boolean:
            return OrNone(AsBoolean(constant));
        case TypeKind::text:
            return text == nullptr ? Comparand() : *text;
        case TypeKind::dateTime:
            return text == nullptr ? Comparand() : OrNone(WqlDateTime::ParseConstant(*text));
        case TypeKind::reference:
            return text == nullptr ? Comparand() : OrNone(ParseObjectPath(*text));
        case TypeKind::object:
            break;
    }
    return {};
}

/// Returns a value in the form of a constant; NULL for an array.
struct AsConstant {
    WqlConstant operator()(bool value) const { return value; }
    WqlConstant operator()(std::int64_t value) const { return WqlNumber(value); }
    WqlConstant operator()(double value) const { return WqlNumber(value); }
    WqlConstant operator()(const std::string& value) const { return value; }

    template <typename NullOrArray>
    WqlConstant operator()(const NullOrArray&) const {
        return {};
    }
};

/// Orders two comparands of one type; nothing if they are of different types or of none.
struct Order {
    using Result = std::optional<std::partial_ordering>;

    Result operator()(const WqlNumber& left, const WqlNumber& right) const {
        return CompareNumbers(left, right);
    }
    Result operator()(bool left, bool right) const { return left <=> right; }
    Result operator()(const std::string& left, const std::string& right) const {
        return FoldCase(left) <=> FoldCase(right);
    }
    Result operator()(const WqlDateTime& left, const WqlDateTime& right) const {
        return left <=> right;
    }
    Result operator()(const ObjectPath& left, const ObjectPath& right) const {
        return NamesSameObject(left, right) ? std::partial_ordering::equivalent
                                            : std::partial_ordering::unordered;
    }

    template <typename Left, typename Right>
    Result operator()(const Left&, const Right&) const {
        return std::nullopt;
    }
};

bool Holds(std::partial_ordering order, Comparison comparison) {
    switch (comparison) {
        case Comparison::equal:
            return order == 0;
        case Comparison::notEqual:
            return order != 0;
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

bool TestsEquality(Comparison comparison) {
    return comparison == Comparison::equal || comparison == Comparison::notEqual;
}

bool IsNull(const WqlConstant& constant) {
    return std::holds_alternative<std::monostate>(constant);
}

/// Returns what has no order in a comparison of a property with a comparand; empty if both have
/// one.
std::string_view WithoutOrder(TypeKind kind, const Comparand& comparand) {
    const auto* date = std::get_if<WqlDateTime>(&comparand);
    if (kind == TypeKind::boolean) {
        return "booleans";
    }
    if (kind == TypeKind::reference) {
        return "references";
    }
    return date != nullptr && date->HasOpenParts() ? "dates with asterisks" : std::string_view();
}

}  // namespace

std::string WhyNotComparable(const ObjectProperty& property, Comparison comparison,
                             const WqlConstant& constant) {
    constexpr std::string_view onlyEquality = "only = and <> apply to ";
    if (property.isArray) {
        return "queries do not compare arrays";
    }
    if (IsNull(constant)) {
        return TestsEquality(comparison) ? "" : std::string(onlyEquality) + "NULL";
    }
    const TypeKind kind = KindOf(property.type);
    const Comparand comparand = AsType(constant, property.type);
    if (std::holds_alternative<std::monostate>(comparand)) {
        return std::string("expected ").append(ExpectedConstant(kind));
    }
    const std::string_view unordered = WithoutOrder(kind, comparand);
    return TestsEquality(comparison) || unordered.empty()
               ? ""
               : std::string(onlyEquality).append(unordered);
}

bool IsMatchable(const ObjectProperty& property) {
    const TypeKind kind = KindOf(property.type);
    return !property.isArray &&
           (kind == TypeKind::text || kind == TypeKind::dateTime || kind == TypeKind::reference);
}

bool Satisfies(const ObjectProperty& property, Comparison comparison, const WqlConstant& constant) {
    if (IsNull(constant)) {
        const bool isNull = std::holds_alternative<std::monostate>(property.value);
        return TestsEquality(comparison) && isNull == (comparison == Comparison::equal);
    }
    const bool isUntyped =
        property.type == CimType::string && !std::holds_alternative<std::string>(constant);
    const CimType type = isUntyped ? CimType::uint64 : property.type;
    const std::optional<std::partial_ordering> order = std::visit(
        Order{}, AsType(std::visit(AsConstant{}, property.value), type), AsType(constant, type));
    return order && Holds(*order, comparison);
}

}  // namespace qv::service
