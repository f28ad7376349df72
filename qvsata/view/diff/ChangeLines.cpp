#include "qvsata/view/diff/ChangeLines.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/text/Characters.h"

namespace qv::view {
namespace {

using nlohmann::ordered_json;

std::string PlainValue(const ordered_json& value) {
    if (value.is_string()) {
        const auto text = value.get<std::string>();
        return text.empty() ? "\"\"" : Printable(text);
    }
    if (value.is_array() && !value.empty()) {
        std::string list;
        for (const ordered_json& element : value) {
            list += (list.empty() ? "" : ", ") + PlainValue(element);
        }
        return list;
    }
    return value.is_null() || value.empty() ? "none" : value.dump();
}

std::string YesOrNo(const ordered_json& value) {
    return value == true ? "yes" : "no";
}

/// For a member that holds the reason why something is not so.
std::string YesOrWhyNot(const ordered_json& value) {
    return value.is_null() ? "yes" : "no: " + PlainValue(value);
}

std::string NumberText(const ordered_json& value) {
    return value.is_null() ? "none" : "#" + value.dump();
}

std::string BytesText(const ordered_json& value) {
    return value.is_null() ? "none" : value.dump() + " bytes";
}

std::string SerialText(const ordered_json& value) {
    return value.is_string() ? SerialNumberText(value.get<std::string>()) : "none";
}

/// How people read a member. One that others say already is shown only if they did not change.
struct Wording {
    std::string_view member;
    std::string_view label;
    std::string (*text)(const ordered_json& value);
    std::string_view saidBy = {};
};

constexpr std::array wordings{
    Wording{"number", "drive number", NumberText},
    Wording{"size", "size", BytesText},
    Wording{"serialNumber", "serial number", SerialText},
    Wording{"decodedSerialNumber", "decoded serial number", PlainValue, "serialNumber"},
    Wording{"attachedTo", "attached to", PlainValue},
    Wording{"attachedToId", "attached to", PlainValue, "attachedTo"},
    Wording{"deviceId", "plug-and-play ID", PlainValue},
    Wording{"statusWord", "status", PlainValue},
    Wording{"status", "status code", PlainValue, "statusWord"},
    Wording{"failurePredicted", "failure predicted", YesOrNo},
    Wording{"whyUnpublished", "published", YesOrWhyNot},
    Wording{"published", "published", YesOrNo, "whyUnpublished"},
    Wording{"whyUnwatched", "watched", YesOrWhyNot},
    Wording{"watched", "watched", YesOrNo, "whyUnwatched"},
    Wording{"StatusDescriptions", "published status", PlainValue},
    Wording{"OperationalStatus", "OperationalStatus", PlainValue, "StatusDescriptions"},
    Wording{"GroupStatusDescriptions", "published consolidated status", PlainValue},
    Wording{"GroupOperationalStatus", "GroupOperationalStatus", PlainValue,
            "GroupStatusDescriptions"},
};

Wording WordingOf(const std::string& member) {
    const auto* const found = std::ranges::find(wordings, member, &Wording::member);
    return found == wordings.end() ? Wording{member, member, PlainValue} : *found;
}

}  // namespace

std::string LabelOf(const std::string& member) {
    return Printable(WordingOf(member).label);
}

std::vector<std::string> LinesOf(const std::vector<MemberChange>& changes) {
    std::vector<std::string> lines;
    for (const MemberChange& change : changes) {
        const Wording wording = WordingOf(change.member);
        const bool isSaid = std::ranges::any_of(changes, [&wording](const MemberChange& other) {
            return other.member == wording.saidBy;
        });
        if (!isSaid) {
            lines.push_back(Printable(wording.label) + ": " + wording.text(change.before) + " → " +
                            wording.text(change.now));
        }
    }
    return lines;
}

}  // namespace qv::view
