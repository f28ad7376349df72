#include "qvsata/capture/Secrets.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <set>
#include <utility>

#include "qvsata/capture/Alphabet.h"
#include "qvsata/capture/MapTexts.h"
#include "qvsata/cim/Utf8.h"
#include "source/Text.h"

namespace qv::capture {
namespace {

using service::ToWide;

/// The properties whose whole text is secret.
constexpr std::array<std::pair<std::string_view, SecretKind>, 28> secretProperties{{
    {"SerialNumber", SecretKind::device},
    {"VolumeSerialNumber", SecretKind::device},
    {"IdentifyingNumber", SecretKind::device},
    {"UniqueId", SecretKind::device},
    {"UUID", SecretKind::device},
    {"VolumeName", SecretKind::name},
    {"VolumeLabel", SecretKind::name},
    {"Label", SecretKind::name},
    {"FileSystemLabel", SecretKind::name},
    {"AssetTag", SecretKind::device},
    {"IPAddress", SecretKind::device},
    {"DefaultIPGateway", SecretKind::device},
    {"DNSServerSearchOrder", SecretKind::device},
    {"DHCPServer", SecretKind::device},
    {"SystemName", SecretKind::name},
    {"CSName", SecretKind::name},
    {"PSComputerName", SecretKind::name},
    {"__SERVER", SecretKind::name},
    {"DNSHostName", SecretKind::name},
    {"DNSDomain", SecretKind::name},
    {"Domain", SecretKind::name},
    {"Workgroup", SecretKind::name},
    {"UserName", SecretKind::name},
    {"Owner", SecretKind::name},
    {"PrimaryOwnerName", SecretKind::name},
    {"PrimaryOwnerContact", SecretKind::name},
    {"RegisteredUser", SecretKind::name},
    {"Organization", SecretKind::name},
}};

/// The properties that hold the ID of a plug-and-play device.
constexpr std::string_view instanceName = "InstanceName";  ///< the ID is followed by _0
constexpr std::array<std::string_view, 3> idProperties{"PNPDeviceID", "DeviceID", instanceName};

/// What stands before a secret in any text, and the characters that end it.
struct Mark {
    std::wstring_view before;
    std::wstring_view ends;
    SecretKind kind;
};

constexpr std::array<Mark, 4> marks{{
    {L"\\users\\", L"\\\"", SecretKind::name},
    {L"\\documents and settings\\", L"\\\"", SecretKind::name},
    {L"\\volume{", L"}\\", SecretKind::device},
    {L"s-1-5-21-", L" \\_\"", SecretKind::device},
}};

constexpr std::size_t shortestSerial = 6;
constexpr std::size_t shortestEncoded = 16;

const std::pair<std::string_view, SecretKind>* SecretPropertyOf(std::string_view property) {
    const auto* const found = std::ranges::find_if(
        secretProperties,
        [property](const auto& secret) { return EqualsIgnoringCase(secret.first, property); });
    return found == secretProperties.end() ? nullptr : found;
}

bool IsHexDigit(wchar_t character) {
    const wchar_t folded = Folded(character);
    return (folded >= L'0' && folded <= L'9') || (folded >= L'a' && folded <= L'f');
}

/// Returns the text that hexadecimal codes of printable characters encode, with each pair of
/// characters swapped; nothing for any other text.
std::optional<std::wstring> Decoded(std::wstring_view digits) {
    if (digits.size() < shortestEncoded || digits.size() % 2 != 0 ||
        !std::ranges::all_of(digits, IsHexDigit)) {
        return std::nullopt;
    }
    const std::string narrow = service::ToUtf8(digits);
    std::wstring text;
    for (std::size_t place = 0; place < narrow.size(); place += 2) {
        unsigned code = 0;
        std::from_chars(narrow.data() + place, narrow.data() + place + 2, code, 16);
        if (code < 0x20 || code > 0x7E) {
            return std::nullopt;
        }
        text += static_cast<wchar_t>(code);
    }
    for (std::size_t place = 1; place < text.size(); place += 2) {
        std::swap(text[place - 1], text[place]);
    }
    return std::wstring(Trimmed(text));
}

/// Returns the serial number in the ID of a device; empty if the system made the last part of the
/// ID itself, which then has an ampersand as its second character.
std::wstring_view SerialOf(std::string_view property, std::wstring_view id) {
    if (EqualsIgnoringCase(property, instanceName)) {
        id = id.substr(0, id.rfind(L'_'));
    }
    const std::size_t first = id.find(L'\\');
    const std::size_t second = id.find(L'\\', first == id.npos ? id.size() : first + 1);
    if (first == 0 || second == id.npos || id.find(L'\\', second + 1) != id.npos) {
        return {};
    }
    const std::wstring_view instance = id.substr(second + 1);
    const std::wstring_view serial = instance.substr(0, instance.find(L'&'));
    const bool isOfSystem = instance.size() > 1 && instance[1] == L'&';
    return isOfSystem || CountReplaceable(serial) < shortestSerial ? std::wstring_view() : serial;
}

/// Returns the digits of a network card's address at the beginning of a text ("00:1A:2B:3C:4D:5E");
/// empty if there is none.
std::wstring MacAt(std::wstring_view text) {
    constexpr std::size_t length = 17;
    constexpr std::size_t step = 3;
    std::wstring digits;
    if (text.size() < length) {
        return digits;
    }
    for (std::size_t place = 0; place < length; ++place) {
        const bool isSign = place % step == 2;
        const bool fits =
            isSign ? (text[place] == L':' || text[place] == L'-') && text[place] == text[2]
                   : IsHexDigit(text[place]);
        if (!fits) {
            return {};
        }
        digits += isSign ? std::wstring() : std::wstring(1, text[place]);
    }
    return text.size() > length && IsHexDigit(text[length]) ? std::wstring() : digits;
}

class Collection {
public:
    void Add(std::wstring_view text, SecretKind kind) {
        std::wstring secret(Trimmed(text));
        if (kind == SecretKind::device) {
            secret = Decoded(secret).value_or(secret);
        }
        if (CountReplaceable(secret) != 0 && known_.insert(Folded(secret)).second) {
            secrets_.push_back({std::move(secret), kind});
        }
    }

    void AddName(std::wstring_view name) {
        for (const std::wstring_view piece : PiecesOfName(Trimmed(name))) {
            Add(piece, SecretKind::name);
        }
    }

    void AddText(std::string_view property, std::wstring_view text) {
        if (const auto* const secret = SecretPropertyOf(property)) {
            secret->second == SecretKind::name ? AddName(text) : Add(text, secret->second);
        }
        AddName(ServerOf(text));
        AddMarked(text);
        if (std::ranges::any_of(idProperties, [property](std::string_view name) {
                return EqualsIgnoringCase(name, property);
            })) {
            Add(SerialOf(property, text), SecretKind::device);
        }
    }

    std::vector<Secret> Take() { return std::move(secrets_); }

private:
    void AddMarked(std::wstring_view text) {
        const std::wstring folded = Folded(text);
        for (const Mark& mark : marks) {
            for (std::size_t place = folded.find(mark.before); place != folded.npos;
                 place = folded.find(mark.before, place + 1)) {
                const std::wstring_view rest = text.substr(place + mark.before.size());
                Add(rest.substr(0, rest.find_first_of(mark.ends)), mark.kind);
            }
        }
        for (std::size_t place = 0; place < text.size(); ++place) {
            Add(MacAt(text.substr(place)), SecretKind::mac);
        }
    }

    std::set<std::wstring> known_;  ///< folded
    std::vector<Secret> secrets_;
};

}  // namespace

bool IsSecretProperty(std::string_view property) {
    return SecretPropertyOf(property) != nullptr;
}

std::vector<std::wstring_view> PiecesOfName(std::wstring_view name) {
    const std::size_t account = name.find(L'\\');
    if (account != name.npos) {
        return {name.substr(0, account), name.substr(account + 1)};
    }
    const std::size_t domain = name.find(L'.');
    return domain == name.npos ? std::vector{name}
                               : std::vector{name.substr(0, domain), name.substr(domain + 1)};
}

std::wstring_view ServerOf(std::wstring_view text) {
    if (!text.starts_with(L"\\\\")) {
        return {};
    }
    const std::wstring_view server = text.substr(2, text.find(L'\\', 2) - 2);
    return server == L"." || server == L"?" ? std::wstring_view() : server;
}

std::vector<Secret> SecretsOf(const service::RecordedHost& host) {
    Collection collection;
    const service::ComputerNames& names = host.Computer();
    for (const std::string* const name :
         {&names.server, &names.dnsFullyQualified, &names.dnsHostname, &names.netbios}) {
        collection.AddName(ToWide(*name));
    }
    VisitTexts(host, [&collection](std::string_view property, const std::string& text) {
        collection.AddText(property, ToWide(text));
    });
    for (const service::RecordedNamespace& nameSpace : host.Namespaces()) {
        for (const service::RecordedClass& recorded : nameSpace.Classes()) {
            for (const service::RecordedRow& row : recorded.Rows()) {
                for (const service::Reference& reference : row.References()) {
                    for (const service::PathKey& key : reference.path.keys) {
                        collection.AddText(key.name, ToWide(key.value));
                    }
                }
            }
        }
    }
    return collection.Take();
}

}  // namespace qv::capture
