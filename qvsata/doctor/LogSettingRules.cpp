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
    const auto* const known = std::ranges::find(numberSettings, setting.name, &NumberSetting::name);
    if (known == numberSettings.end()) {
        const auto* const text = std::get_if<std::string>(&setting.value);
        return text != nullptr && !text->empty()
                   ? ""
                   : setting.name + " is " + InWords(setting) + ", not a folder (REG_SZ)";
    }
    const auto* const number = std::get_if<std::uint32_t>(&setting.value);
    const auto [lowest, highest] = known->range;
    return number != nullptr && known->range.Contains(*number)
               ? ""
               : setting.name + " is " + InWords(setting) + ", not a number from " +
                     std::to_string(lowest) + " to " + std::to_string(highest) + " (REG_DWORD)";
}

const NumberSetting* GeneralSetting(std::string_view name) {
    const auto* const general =
        std::ranges::find(numberSettings, name.substr(0, name.find(" (")), &NumberSetting::name);
    return general == numberSettings.end() ? nullptr : general;
}

bool IsTaken(std::string_view name, const std::vector<SettingFacts>& settings) {
    return std::ranges::any_of(settings, [name](const SettingFacts& setting) {
        return setting.name == name && WhyNotTaken(setting).empty();
    });
}

}  // namespace qv::doctor
