#pragma once

#include <optional>
#include <string>

#include "nlohmann/json.hpp"
#include "qvsata/view/Health.h"

namespace qv::view {

/// Returns a value, or null without one.
template <typename Value>
nlohmann::ordered_json OrNull(const std::optional<Value>& value) {
    return value ? nlohmann::ordered_json(*value) : nlohmann::ordered_json(nullptr);
}

/// Returns a text, or null for an empty one: one that the system does not report.
inline nlohmann::ordered_json OrNull(const std::string& text) {
    return text.empty() ? nlohmann::ordered_json(nullptr) : nlohmann::ordered_json(text);
}

/// Returns a health as its code, or null, and its word.
inline nlohmann::ordered_json StatusAsJson(const Health& health) {
    return {{"code", OrNull(health.code)}, {"word", health.word}};
}

}  // namespace qv::view
