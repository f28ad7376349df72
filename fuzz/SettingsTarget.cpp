#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "fuzz/Chooser.h"
#include "qvsata/doctor/Facts.h"
#include "qvsata/doctor/LogSettingRules.h"
#include "settings/LogSettings.h"
#include "settings/RefreshTimeout.h"
#include "settings/StoredValue.h"

namespace qv::fuzz {
namespace {

using StoredValues = std::map<std::wstring, StoredValue>;

constexpr auto folderName = L"LogFolder";
constexpr std::array levelNames{L"LogLevel", L"LogLevel (QVWMISATA)", L"LogLevel (QVWMISATA:PART)"};
constexpr std::array sizeNames{L"LogMaxSize", L"LogMaxSize (QVWMISATA)"};
constexpr std::array settingNames{folderName,    levelNames[0], levelNames[1],
                                  levelNames[2], sizeNames[0],  sizeNames[1]};

// Each line: a name and a type, of which there are 12, a byte each, and the stored bytes.
StoredValues ValuesOf(Chooser lines) {
    StoredValues values;
    while (!lines.AtEnd()) {
        const std::string line = lines.Line();
        Chooser choices{Bytes(reinterpret_cast<const std::uint8_t*>(line.data()), line.size())};
        StoredValue& value = values[choices.OneOf(settingNames)];
        value.type = static_cast<std::uint32_t>(choices.Below(12));
        value.bytes = choices.Rest();
    }
    return values;
}

// What a stored value holds, read plainly.
using Content = std::variant<std::monostate, std::uint32_t, std::wstring>;

Content ContentOf(const StoredValue& value) {
    const auto byte = [&](std::size_t place) {
        return std::uint32_t{static_cast<unsigned char>(value.bytes[place])};
    };
    if (value.type == 4 && value.bytes.size() == 4) {
        return byte(0) + byte(1) * 0x100 + byte(2) * 0x10000 + byte(3) * 0x1000000;
    }
    if (value.type != 1 && value.type != 2) {
        return {};
    }
    std::wstring text;
    for (std::size_t place = 0; place + 1 < value.bytes.size(); place += 2) {
        text += static_cast<wchar_t>(byte(place) + byte(place + 1) * 0x100);
    }
    return text.substr(0, text.find(L'\0'));
}

bool IsRight(std::wstring_view name, const Content& value) {
    if (name == folderName) {
        const auto* const text = std::get_if<std::wstring>(&value);
        return text != nullptr && !text->empty();
    }
    const auto* const number = std::get_if<std::uint32_t>(&value);
    return number != nullptr &&
           (name.starts_with(levelNames[0]) ? *number >= 1 && *number <= 5
                                            : *number >= 0x80000 && *number <= 0x2000000);
}

// Returns the last number of a list of names that is right and has only such ones before it.
template <typename Names>
std::optional<std::uint32_t> MostSpecific(const StoredValues& values, const Names& names) {
    std::optional<std::uint32_t> last;
    for (const wchar_t* const name : names) {
        const auto found = values.find(name);
        const Content value = found == values.end() ? Content() : ContentOf(found->second);
        if (!IsRight(name, value)) {
            break;
        }
        last = std::get<std::uint32_t>(value);
    }
    return last;
}

void CheckLogSettings(const StoredValues& values) {
    LogSettings settings{.folder = L"default\\"};
    const auto find = [&](const std::wstring& name) -> std::optional<StoredValue> {
        const auto found = values.find(name);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
    const bool taken = TakeLogSettings(find, L"QVWMISATA", L"PART", FolderSetting::read, settings);

    const auto level = MostSpecific(values, levelNames);
    const auto size = MostSpecific(values, sizeNames);
    Require(static_cast<std::uint32_t>(settings.level) == level.value_or(3),
            "the level is the most specific one that is right");
    Require(settings.maxSize == size.value_or(0x200000),
            "the size is the most specific one that is right");
    const auto stored = find(folderName);
    const Content folder = stored ? ContentOf(*stored) : Content();
    const bool isSet = IsRight(folderName, folder);
    std::wstring expected = isSet ? std::get<std::wstring>(folder) : L"default";
    expected += expected.ends_with(L'\\') ? L"" : L"\\";
    Require(settings.folder == expected, "the folder is the stored one if it is right");
    Require(taken == (level && size && (isSet || !stored)),
            "the settings are taken if those that are not of a module are right");
}

// Returns a setting as the doctor has it.
doctor::SettingFacts FactsOf(std::wstring_view name, const Content& value) {
    doctor::SettingFacts facts{{name.begin(), name.end()}, {}};
    if (const auto* const number = std::get_if<std::uint32_t>(&value)) {
        facts.value = *number;
    } else if (const auto* const text = std::get_if<std::wstring>(&value)) {
        facts.value = text->empty() ? "" : "a text";
    }
    return facts;
}

void CheckDoctor(const StoredValues& values) {
    for (const auto& [name, stored] : values) {
        const Content value = ContentOf(stored);
        Require(name == levelNames[2] ||
                    doctor::WhyNotTaken(FactsOf(name, value)).empty() == IsRight(name, value),
                "the doctor complains of exactly the values that are not right");
    }
}

// The number as a plain loop reads it.
std::uint32_t LeadingNumber(std::string_view digits) {
    constexpr std::uint64_t most = std::numeric_limits<std::uint32_t>::max();
    std::uint64_t number = 0;
    for (const char digit : digits.substr(0, digits.find_first_not_of("0123456789"))) {
        number = std::min<std::uint64_t>(number * 10 + static_cast<unsigned>(digit - '0'), most);
    }
    return static_cast<std::uint32_t>(number);
}

}  // namespace

// The input is the values of the log's key, and the bytes of the refresh timeout.
void RunSettings(Bytes input) {
    const StoredValues values = ValuesOf(Chooser(input));
    CheckLogSettings(values);
    CheckDoctor(values);
    const std::string_view stored = TextOf(input);
    Require(RefreshTimeoutOf(stored) == (stored.size() > 255 ? 0 : LeadingNumber(stored)),
            "the refresh timeout is the number that its bytes begin with");
}

}  // namespace qv::fuzz
