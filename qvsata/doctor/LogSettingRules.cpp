#include "qvsata/doctor/LogSettingRules.h"

#include <algorithm>

namespace qv::doctor {
namespace {

/// Returns a value as a person reads it.
std::string InWords(const SettingFacts& setting) {
    if (const auto* const number = std::get_if<std::uint32_t>(&setting.value)) {
        return std::to_string(*number);
    }
    const auto* const text = std::get_if<std::string>(&setting.value);
    return text == nullptr ? "of another type" : '"' + *text + '"';
}

}  // namespace

std::string WhyNotTaken(const SettingFacts& setting) {
    const auto* const range = std::ranges::find(numberSettings, setting.name, &NumberSetting::name);
    if (range == numberSettings.end()) {
        const auto* const text = std::get_if<std::string>(&setting.value);
        return text != nullptr && !text->empty()
                   ? ""
                   : setting.name + " is " + InWords(setting) + ", not a folder (REG_SZ)";
    }
    const auto* const number = std::get_if<std::uint32_t>(&setting.value);
    return number != nullptr && *number >= range->lowest && *number <= range->highest
               ? ""
               : setting.name + " is " + InWords(setting) + ", not a number from " +
                     std::to_string(range->lowest) + " to " + std::to_string(range->highest) +
                     " (REG_DWORD)";
}

}  // namespace qv::doctor
