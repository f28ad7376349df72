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

/// Returns the entry of a table for a setting; null if it has none.
template <typename Table>
auto Entry(const Table& table, std::string_view name) {
    const auto entry = std::ranges::find(table, name, [](const auto& one) { return one.name; });
    return entry == table.end() ? nullptr : &*entry;
}

std::string WhyNotTaken(const SettingFacts& setting, const NumberSetting& known) {
    const auto* const number = std::get_if<std::uint32_t>(&setting.value);
    if (number != nullptr && known.range.Contains(*number)) {
        return {};
    }
    const auto [lowest, highest] = known.range;
    return setting.name + " is " + InWords(setting) + ", not a number from " +
           std::to_string(lowest) + " to " + std::to_string(highest) + " (REG_DWORD)";
}

}  // namespace

std::string WhyNotTaken(const SettingFacts& setting) {
    if (const NumberSetting* const known = Entry(numberSettings, setting.name)) {
        return WhyNotTaken(setting, *known);
    }
    const auto* const text = std::get_if<std::string>(&setting.value);
    return text != nullptr && !text->empty()
               ? ""
               : setting.name + " is " + InWords(setting) + ", not " +
                     std::string(Entry(textSettings, setting.name)->meaning) + " (REG_SZ)";
}

std::string PlaceOf(std::string_view name) {
    const TextSetting* const text = Entry(textSettings, name);
    const std::string_view key = text ? text->key : Entry(numberSettings, name)->key;
    return "HKLM\\" + std::string(key) + " /v \"" + std::string(name) + '"';
}

const NumberSetting* GeneralSetting(std::string_view name) {
    return Entry(numberSettings, name.substr(0, name.find(" (")));
}

bool IsTaken(std::string_view name, const std::vector<SettingFacts>& settings) {
    return std::ranges::any_of(settings, [name](const SettingFacts& setting) {
        return setting.name == name && WhyNotTaken(setting).empty();
    });
}

}  // namespace qv::doctor
