#include "qvsata/cim/PutRules.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/cim/ValueRules.h"
#include "source/Text.h"

namespace qv::service {
namespace {

struct AsVariant {
    PutValue operator()(std::monostate) const { return {}; }
    PutValue operator()(const std::string& text) const { return {variant::text, text}; }
    PutValue operator()(const qv::Reference& reference) const {
        return {variant::text, reference.path};
    }
    PutValue operator()(std::uint8_t number) const {
        return {variant::uint8, std::int64_t{number}};
    }
    PutValue operator()(std::int32_t number) const {
        return {variant::int32, std::int64_t{number}};
    }
    PutValue operator()(bool flag) const { return {variant::boolean, std::int64_t{flag ? 1 : 0}}; }
    PutValue operator()(const std::vector<std::string>& texts) const {
        return {variant::array | variant::text, texts};
    }
    PutValue operator()(const std::vector<std::int32_t>& numbers) const {
        return {variant::array | variant::int32,
                std::vector<std::int64_t>(numbers.begin(), numbers.end())};
    }
};

struct WholeNumber {
    VariantType type;
    int bytes;
    std::int64_t lowest;
    std::int64_t highest;
};

template <typename Number>
constexpr WholeNumber Whole(VariantType type) {
    using Limits = std::numeric_limits<Number>;
    // Values of 64 bits are text and have no range here.
    return sizeof(Number) == 8
               ? WholeNumber{type, sizeof(Number), 0, 0}
               : WholeNumber{type, sizeof(Number), static_cast<std::int64_t>(Limits::min()),
                             static_cast<std::int64_t>(Limits::max())};
}

constexpr std::array wholeNumbers{
    Whole<std::int8_t>(variant::int8),       Whole<std::uint8_t>(variant::uint8),
    Whole<std::int16_t>(variant::int16),     Whole<std::uint16_t>(variant::uint16),
    Whole<std::int32_t>(variant::int32),     Whole<std::uint32_t>(variant::uint32),
    Whole<std::int32_t>(variant::nativeInt), Whole<std::uint32_t>(variant::nativeUint),
    Whole<std::int64_t>(variant::int64),     Whole<std::uint64_t>(variant::uint64),
};

/// Returns a whole number's type; null for any other type.
const WholeNumber* FindWhole(VariantType type) {
    const auto* found = std::ranges::find(wholeNumbers, type, &WholeNumber::type);
    return found == wholeNumbers.end() ? nullptr : found;
}

bool WouldBeWidened(VariantType from, VariantType to) {
    const WholeNumber* source = FindWhole(from);
    const WholeNumber* target = FindWhole(to);
    return source != nullptr && target != nullptr && source->bytes < target->bytes;
}

/// Returns the number in a text, ignoring blanks around it; nothing for any other text.
std::optional<double> ParseNumber(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);  // std::from_chars takes a minus only
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() && std::isfinite(number)
               ? std::optional(number)
               : std::nullopt;
}

/// Converts a scalar to a type other than its own, as the system converts VARIANTs; returns nothing
/// for a value that the type does not accept.
struct ConvertScalar {
    VariantType wanted;

    std::optional<CimValue> operator()(std::int64_t number) const {
        if (wanted == variant::text) {
            return std::to_string(number);
        }
        return (*this)(static_cast<double>(number));
    }

    /// Rounds to a whole number, halves to the even one.
    std::optional<CimValue> operator()(double number) const {
        if (wanted == variant::boolean) {
            return number != 0;
        }
        if (wanted == variant::real32 || wanted == variant::real64) {
            return number;
        }
        const WholeNumber* whole = FindWhole(wanted);
        const double rounded = std::nearbyint(number);
        if (whole == nullptr || rounded < static_cast<double>(whole->lowest) ||
            rounded > static_cast<double>(whole->highest)) {
            return std::nullopt;
        }
        return static_cast<std::int64_t>(rounded);
    }

    std::optional<CimValue> operator()(const std::string& text) const {
        if (wanted == variant::text) {
            return text;
        }
        if (wanted == variant::boolean &&
            (EqualsIgnoringCase(text, "TRUE") || EqualsIgnoringCase(text, "FALSE"))) {
            return EqualsIgnoringCase(text, "TRUE");
        }
        const std::optional<double> number = ParseNumber(text);
        return number ? (*this)(*number) : std::nullopt;
    }

    template <typename Other>
    std::optional<CimValue> operator()(const Other&) const {
        return std::nullopt;
    }
};

/// Returns the content of a VARIANT that has the property's own type; nothing if it is unreadable.
std::optional<CimValue> OwnValue(const PutValue& put) {
    if (std::holds_alternative<std::monostate>(put.value)) {
        return std::nullopt;
    }
    const auto* flag =
        put.type == variant::boolean ? std::get_if<std::int64_t>(&put.value) : nullptr;
    return flag == nullptr ? put.value : CimValue(*flag != 0);
}

CimValue EmptyArrayOf(CimType type) {
    switch (VariantTypeOf(type, false)) {
        case variant::text:
            return std::vector<std::string>{};
        case variant::boolean:
            return std::vector<bool>{};
        case variant::real32:
        case variant::real64:
            return std::vector<double>{};
        default:
            return std::vector<std::int64_t>{};
    }
}

std::optional<CimValue> Convert(const PutValue& put, CimType type, bool isArray) {
    const VariantType wanted = VariantTypeOf(type, isArray);
    if (put.type == wanted) {
        return OwnValue(put);
    }
    if (isArray) {
        const bool isEmpty =
            put.type == (variant::array | variant::any) && service::IsArray(put.value);
        return isEmpty ? std::optional(EmptyArrayOf(type)) : std::nullopt;
    }
    return WouldBeWidened(put.type, wanted) ? std::nullopt
                                            : std::visit(ConvertScalar{wanted}, put.value);
}

Status Store(Instance& instance, std::string_view name, const PutValue& put) {
    if (IsSystemName(name)) {
        return status::readOnly;
    }
    const PropertyDefinition* property = instance.Class()->Find(name);
    if (property == nullptr) {
        return Status::notFound;
    }
    CimValue stored;
    const Status result = ConvertForPut(put, property->type, property->isArray, stored);
    if (Succeeded(result)) {
        instance.Set(name, std::move(stored));
    }
    return result;
}

}  // namespace

PutValue AsPut(const TypedValue& value) {
    return std::visit(AsVariant(), value);
}

Status ConvertForPut(const PutValue& put, CimType type, bool isArray, CimValue& stored) {
    if (put.type == variant::null) {
        stored = {};
        return Status::noError;
    }
    std::optional<CimValue> value = Convert(put, type, isArray);
    if (!value || !IsValueOf(*value, type)) {
        return status::typeMismatch;
    }
    stored = FromVariantContent(*std::move(value), type);
    return Status::noError;
}

Status PutOn(Instance& instance, std::string_view name, PutValue put) {
    const Status result = Store(instance, name, put);
    instance.Record({std::string(name), put.type, std::move(put.value), result});
    return result;
}

}  // namespace qv::service
