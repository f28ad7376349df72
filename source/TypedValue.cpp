#include "source/TypedValue.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "source/Text.h"

namespace qv {
namespace {

// Reads as atoi does; beyond 32 bits, where atoi is undefined, returns the nearest number.
std::int32_t ToInt32(const std::string& text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const long long number = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<std::int32_t>(std::clamp<long long>(number, Limits::min(), Limits::max()));
}

}  // namespace

bool ToTypedValue(const PropertyEntry& entry, TypedValue& value) {
    switch (entry.type) {
        case PropertyType::untyped:
        case PropertyType::text:
        case PropertyType::string:
            value = entry.value;
            return true;
        case PropertyType::uint8:
            value = static_cast<std::uint8_t>(ToInt32(entry.value));
            return true;
        case PropertyType::int32:
        case PropertyType::integer:
            value = ToInt32(entry.value);
            return true;
        case PropertyType::boolean:
            value = EqualsIgnoringCase(entry.value, "TRUE");
            return true;
        case PropertyType::reference:
            value = Reference{entry.value};
            return true;
        case PropertyType::stringArray:
        case PropertyType::textArray: {
            auto pieces = SplitList(entry.value);
            value = pieces.empty() ? TypedValue{} : TypedValue{std::move(pieces)};
            return true;
        }
        case PropertyType::int32Array: {
            std::vector<std::int32_t> numbers;
            for (const std::string& piece : SplitList(entry.value)) {
                numbers.push_back(ToInt32(piece));
            }
            value = numbers.empty() ? TypedValue{} : TypedValue{std::move(numbers)};
            return true;
        }
    }
    return false;
}

}  // namespace qv
