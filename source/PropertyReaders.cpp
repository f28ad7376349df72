#include "source/PropertyReaders.h"

#include <new>
#include <type_traits>
#include <utility>

namespace qv {
namespace {

template <typename T>
struct IsNumberArray : std::false_type {};
template <typename Element>
struct IsNumberArray<std::vector<Element>> : std::is_integral<Element> {};

}  // namespace

Status GetStringProperty(const platform::Row& row, std::string_view name, std::string& text) try {
    platform::PropertyRead read = row.Get(name);
    if (!Succeeded(read.status)) {
        return read.status;
    }
    auto* found = std::get_if<std::string>(&read.value);
    if (found == nullptr) {
        return Status::failed;
    }
    text = std::move(*found);
    return Status::noError;
} catch (const std::bad_alloc&) {
    throw RequestError(Status::outOfMemory);
}

Status GetIntegerProperty(const platform::Row& row, std::string_view name, std::int32_t& number) {
    const platform::PropertyRead read = row.Get(name);
    if (!Succeeded(read.status)) {
        return Status::failed;
    }
    return std::visit(
        [&number](const auto& value) {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
                number = static_cast<std::int32_t>(value);
                return Status::noError;
            } else {
                return Status::failed;
            }
        },
        read.value);
}

Status GetBooleanProperty(const platform::Row& row, std::string_view name, bool& flag) {
    const platform::PropertyRead read = row.Get(name);
    if (!Succeeded(read.status)) {
        return Status::failed;
    }
    const auto* found = std::get_if<bool>(&read.value);
    if (found == nullptr) {
        return Status::failed;
    }
    flag = *found;
    return Status::noError;
}

Status GetUInt16Property(const platform::Row& row, std::string_view name, std::uint16_t& number) {
    std::int32_t wide = 0;
    if (!Succeeded(GetIntegerProperty(row, name, wide))) {
        return Status::failed;
    }
    number = static_cast<std::uint16_t>(wide);
    return Status::noError;
}

Status GetIntegerArrayProperty(const platform::Row& row, std::string_view name,
                               std::vector<std::int32_t>& numbers) {
    numbers.clear();
    const platform::PropertyRead read = row.Get(name);
    if (!Succeeded(read.status)) {
        return Status::failed;
    }
    return std::visit(
        [&numbers](const auto& value) {
            using T = std::decay_t<decltype(value)>;
            if constexpr (IsNumberArray<T>::value) {
                using Unsigned = std::make_unsigned_t<typename T::value_type>;
                for (const auto element : value) {
                    numbers.push_back(static_cast<std::int32_t>(static_cast<Unsigned>(element)));
                }
                return Status::noError;
            } else {
                return Status::failed;
            }
        },
        read.value);
}

std::string TextOrEmpty(const platform::Row& row, std::string_view name) {
    std::string text;
    GetStringProperty(row, name, text);
    return text;
}

std::string DecimalOrZero(const platform::Row& row, std::string_view name) {
    std::int32_t number = 0;
    GetIntegerProperty(row, name, number);
    return std::to_string(number);
}

}  // namespace qv
