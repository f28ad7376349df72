#include "qvsata/view/diff/Differences.h"

#include <algorithm>
#include <unordered_map>

namespace qv::view {
namespace {

using nlohmann::ordered_json;

ordered_json MemberOf(const ordered_json& members, const std::string& name) {
    const auto found = members.find(name);
    return found == members.end() ? ordered_json() : *found;
}

std::vector<MemberChange> ChangesBetween(const ordered_json& before, const ordered_json& now) {
    std::vector<MemberChange> changes;
    for (const auto& [name, value] : now.items()) {
        if (ordered_json old = MemberOf(before, name); old != value) {
            changes.push_back({name, std::move(old), value});
        }
    }
    for (const auto& [name, value] : before.items()) {
        if (!now.contains(name) && !value.is_null()) {
            changes.push_back({name, value, nullptr});
        }
    }
    return changes;
}

/// The things of one side that have no counterpart yet, by key.
class Unpaired {
public:
    explicit Unpaired(const std::vector<Item>& items) {
        for (const Item& item : items) {
            byKey_[item.key].push_back(&item);
        }
    }

    /// Removes the first thing with the key that `fits`; returns null if there is none.
    template <typename Fits>
    const Item* Take(const std::string& key, Fits fits) {
        const auto found = byKey_.find(key);
        if (found == byKey_.end()) {
            return nullptr;
        }
        auto& items = found->second;
        const auto item = std::ranges::find_if(items, [&](const Item* one) { return fits(*one); });
        if (item == items.end()) {
            return nullptr;
        }
        const Item* const taken = *item;
        items.erase(item);
        return taken;
    }

private:
    std::unordered_map<std::string, std::vector<const Item*>> byKey_;
};

}  // namespace

std::string TextMember(const Item& item, const std::string& name) {
    const ordered_json member = MemberOf(item.members, name);
    return member.is_string() ? member.get<std::string>() : std::string();
}

Differences FindDifferences(const std::vector<Item>& before, const std::vector<Item>& now) {
    Differences differences;
    Unpaired unpaired(before);
    std::vector<const Item*> unequal;
    for (const Item& item : now) {
        const auto isEqual = [&item](const Item& one) { return one.members == item.members; };
        if (unpaired.Take(item.key, isEqual) == nullptr) {
            unequal.push_back(&item);
        }
    }
    const auto any = [](const Item&) { return true; };
    for (const Item* item : unequal) {
        if (const Item* const old = unpaired.Take(item->key, any)) {
            differences.changed.push_back({*item, ChangesBetween(old->members, item->members)});
        } else {
            differences.appeared.push_back(*item);
        }
    }
    for (const Item& item : before) {
        const auto isSame = [&item](const Item& one) { return &one == &item; };
        if (unpaired.Take(item.key, isSame) != nullptr) {
            differences.gone.push_back(item);
        }
    }
    return differences;
}

}  // namespace qv::view
