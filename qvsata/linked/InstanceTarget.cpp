#include "qvsata/linked/InstanceTarget.h"

#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/cim/ValueRules.h"
#include "source/Text.h"
#include "source/TypedValue.h"

namespace qv::service {
namespace {

// The VARIANT types of a Put, by their numbers in wtypes.h.
constexpr std::uint16_t variantArray = 0x2000;
constexpr std::uint16_t variantTypes[] = {1, 8, 8, 17, 3, 11, variantArray | 8, variantArray | 3};

struct AsHandedOver {
    CimValue operator()(std::monostate) const { return {}; }
    CimValue operator()(bool flag) const { return std::int64_t{flag ? 1 : 0}; }
    CimValue operator()(std::uint8_t number) const { return std::int64_t{number}; }
    CimValue operator()(std::int32_t number) const { return std::int64_t{number}; }
    CimValue operator()(const std::string& text) const { return text; }
    CimValue operator()(const qv::Reference& reference) const { return reference.path; }
    CimValue operator()(const std::vector<std::string>& texts) const { return texts; }
    CimValue operator()(const std::vector<std::int32_t>& numbers) const {
        return std::vector<std::int64_t>(numbers.begin(), numbers.end());
    }
};

bool IsText(CimType type) {
    return type == CimType::string || type == CimType::datetime || type == CimType::reference ||
           type == CimType::sint64 || type == CimType::uint64;
}

/// Returns whether the type is passed as a 32-bit number.
bool IsInt32(CimType type) {
    return type == CimType::uint16 || type == CimType::sint32 || type == CimType::uint32;
}

/// Returns a 32-bit number as a value of the type: a uint32 becomes unsigned again.
CimValue NumberOf(std::int32_t number, CimType type) {
    return type == CimType::uint32 ? std::int64_t{static_cast<std::uint32_t>(number)}
                                   : std::int64_t{number};
}

/// Returns the number in a text, ignoring blanks around it; nothing for any other text.
std::optional<std::int32_t> ParseInt32(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() ? std::optional(number)
                                                                    : std::nullopt;
}

/// Converts a scalar by the rules of hosting/PutRules.h, as far as records need them; returns
/// nothing for a value that the type does not accept.
struct ConvertScalar {
    CimType type;

    std::optional<CimValue> operator()(std::monostate) const { return CimValue{}; }

    std::optional<CimValue> operator()(const std::string& text) const {
        if (IsText(type)) {
            return text;
        }
        const std::optional<std::int32_t> number = ParseInt32(text);
        return number && IsInt32(type) ? std::optional(NumberOf(*number, type)) : std::nullopt;
    }

    std::optional<CimValue> operator()(const qv::Reference& reference) const {
        return (*this)(reference.path);
    }

    std::optional<CimValue> operator()(std::int32_t number) const {
        if (IsInt32(type)) {
            return NumberOf(number, type);
        }
        if (type == CimType::uint8 && number >= 0 &&
            number <= std::numeric_limits<std::uint8_t>::max()) {
            return std::int64_t{number};
        }
        if (type == CimType::boolean) {
            return number != 0;
        }
        return IsText(type) ? std::optional<CimValue>(std::to_string(number)) : std::nullopt;
    }

    std::optional<CimValue> operator()(std::uint8_t number) const {
        if (type == CimType::uint8) {
            return std::int64_t{number};
        }
        // Numbers are not widened.
        return IsText(type) ? std::optional<CimValue>(std::to_string(number)) : std::nullopt;
    }

    std::optional<CimValue> operator()(bool flag) const {
        return type == CimType::boolean ? std::optional<CimValue>(flag) : std::nullopt;
    }

    template <typename Element>
    std::optional<CimValue> operator()(const std::vector<Element>&) const {
        return std::nullopt;
    }
};

/// Converts an array in the same way, but not its elements.
struct ConvertArray {
    CimType type;

    std::optional<CimValue> operator()(std::monostate) const { return CimValue{}; }

    std::optional<CimValue> operator()(const std::vector<std::string>& texts) const {
        return IsText(type) ? std::optional<CimValue>(texts) : std::nullopt;
    }

    std::optional<CimValue> operator()(const std::vector<std::int32_t>& numbers) const {
        if (!IsInt32(type)) {
            return std::nullopt;
        }
        std::vector<std::int64_t> stored;
        for (const std::int32_t number : numbers) {
            stored.push_back(std::get<std::int64_t>(NumberOf(number, type)));
        }
        return stored;
    }

    template <typename Scalar>
    std::optional<CimValue> operator()(const Scalar&) const {
        return std::nullopt;
    }
};

Status Store(Instance& instance, const std::string& name, const TypedValue& value) {
    const PropertyDefinition* property = instance.Class()->Find(name);
    if (property == nullptr) {
        return Status::notFound;
    }
    std::optional<CimValue> stored = property->isArray
                                         ? std::visit(ConvertArray{property->type}, value)
                                         : std::visit(ConvertScalar{property->type}, value);
    if (!stored || !IsValueOf(*stored, property->type)) {
        return status::typeMismatch;
    }
    instance.Set(name, *std::move(stored));
    return Status::noError;
}

}  // namespace

Status InstanceTarget::Put(const PropertyEntry& property) {
    TypedValue value;
    if (!ToTypedValue(property, value)) {
        return Status::invalidCimType;
    }
    if (auto* reference = std::get_if<qv::Reference>(&value)) {
        reference->path.insert(0, namespacePrefix_);
    }
    const Status result = Store(instance_, property.name, value);
    instance_.Record(
        {property.name, variantTypes[value.index()], std::visit(AsHandedOver(), value), result});
    return result;
}

Status InstanceTarget::PutWideText(std::string_view name, std::wstring_view text) {
    return Put({std::string(name), ToUtf8(text), PropertyType::string, false});
}

}  // namespace qv::service
