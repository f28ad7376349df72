#include "qvsata/view/diff/DiffJson.h"

#include <algorithm>
#include <iterator>

#include "qvsata/view/JsonValues.h"
#include "qvsata/view/events/EventJson.h"

namespace qv::view {
namespace {

using nlohmann::ordered_json;

template <typename List, typename AsJson>
ordered_json ArrayOf(const List& list, AsJson asJson) {
    ordered_json array = ordered_json::array();
    std::ranges::transform(list, std::back_inserter(array), asJson);
    return array;
}

ordered_json ChangesAsJson(const std::vector<MemberChange>& changes) {
    return ArrayOf(changes, [](const MemberChange& change) -> ordered_json {
        return {{"property", change.member}, {"from", change.before}, {"to", change.now}};
    });
}

/// Returns differences; a thing that changed has the members of `identity` and its changes.
ordered_json DifferencesAsJson(const Differences& differences,
                               std::initializer_list<const char*> identity) {
    const auto whole = [](const Item& item) { return item.members; };
    return {{"gone", ArrayOf(differences.gone, whole)},
            {"appeared", ArrayOf(differences.appeared, whole)},
            {"changed", ArrayOf(differences.changed, [identity](const ChangedItem& item) {
                 ordered_json changed = ordered_json::object();
                 for (const char* const name : identity) {
                     changed[name] = item.now.members[name];
                 }
                 changed["changes"] = ChangesAsJson(item.changes);
                 return changed;
             })}};
}

ordered_json SideAsJson(const HostDiff::Side& side) {
    return {{"name", side.name}, {"computer", OrNull(side.computer)}};
}

/// The change has no time.
ordered_json EventWithoutTime(const DiskEvent& event) {
    ordered_json members = EventAsJson(event);
    members.erase("time");
    return members;
}

/// Nothing tells computers without names apart.
ordered_json IsSameComputer(const HostDiff& diff) {
    if (diff.before.computer.empty() && diff.now.computer.empty()) {
        return nullptr;
    }
    return diff.before.computer == diff.now.computer;
}

ordered_json IsSame(const HostDiff& diff) {
    if (diff.IsEmpty() && !diff.IsComplete()) {
        return nullptr;
    }
    return diff.IsEmpty();
}

}  // namespace

ordered_json DiffAsJson(const HostDiff& diff) {
    ordered_json json{{"from", SideAsJson(diff.before)},
                      {"to", SideAsJson(diff.now)},
                      {"sameComputer", IsSameComputer(diff)},
                      {"same", IsSame(diff)}};
    json["disks"] = diff.disks ? DifferencesAsJson(*diff.disks, {"number", "model", "deviceId"})
                               : ordered_json();
    json["instances"] = DifferencesAsJson(diff.instances, {"__CLASS", "__RELPATH"});
    json["events"] = diff.events ? ArrayOf(*diff.events, EventWithoutTime) : ordered_json();
    json["notCompared"] = {{"diskMembers", diff.unreadMembers}, {"classes", diff.unreadClasses}};
    return json;
}

}  // namespace qv::view
