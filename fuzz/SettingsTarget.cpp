#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/Chooser.h"
#include "qvsata/doctor/LogSettingRules.h"
#include "settings/LogSettings.h"
#include "settings/RefreshTimeout.h"

namespace qv::fuzz {
namespace {

using StoredValues = std::map<std::wstring, StoredValue>;

constexpr std::array settingNames{L"LogFolder",
                                  L"LogLevel",
                                  L"LogLevel (QVWMISATA)",
                                  L"LogLevel (QVWMISATA:PART)",
                                  L"LogMaxSize",
                                  L"LogMaxSize (QVWMISATA)"};

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

// Returns whether the doctor finds nothing wrong with a value.
bool IsSound(const std::string& name, const StoredValue& value) {
    doctor::SettingFacts facts{name, {}};
    if (const auto number = NumberOf(value)) {
        facts.value = *number;
    } else if (const auto text = TextOf(value)) {
        facts.value = text->empty() ? "" : "x";
    }
    return doctor::WhyNotTaken(facts).empty();
}

void CheckLogSettings(const StoredValues& values) {
    LogSettings settings{.folder = L"default\\"};
    const auto find = [&](const std::wstring& name) -> std::optional<StoredValue> {
        const auto found = values.find(name);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
    const auto isSound = [&](const std::wstring& name, bool ifMissing) {
        const auto value = find(name);
        return value ? IsSound({name.begin(), name.end()}, *value) : ifMissing;
    };
    const bool taken = TakeLogSettings(find, L"QVWMISATA", L"PART", FolderSetting::read, settings);
    Require(taken == (isSound(L"LogFolder", true) && isSound(L"LogLevel", false) &&
                      isSound(L"LogMaxSize", false)),
            "the doctor complains of exactly the values that are not taken");
    Require(settings.level >= LogLevel::debug && settings.level <= LogLevel::error,
            "the level is one of the five");
    Require(settings.maxSize >= 0x80000 && settings.maxSize <= 0x2000000,
            "the size is in its range");
    Require(settings.folder.ends_with(L'\\') && settings.folder.find(L'\0') == std::wstring::npos,
            "the folder is a path that ends in a backslash");
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
    CheckLogSettings(ValuesOf(Chooser(input)));
    const std::string_view stored = TextOf(input);
    Require(RefreshTimeoutOf(stored) == (stored.size() > 255 ? 0 : LeadingNumber(stored)),
            "the refresh timeout is the number that its bytes begin with");
}

}  // namespace qv::fuzz
