#pragma once

#include <string>
#include <vector>

#include "nlohmann/json.hpp"

namespace qv::view {

/// A thing that two machines, or one at two times, may both have: a disk or a published instance.
struct Item {
    std::string key;                 ///< equal for the same thing; several things may share one
    nlohmann::ordered_json members;  ///< an object: the form of the thing in JSON output
    bool isAssociation = false;
};

/// A member that differs; null where the thing lacks it.
struct MemberChange {
    std::string member;
    nlohmann::ordered_json before;
    nlohmann::ordered_json now;
};

/// A thing that both have, with different members.
struct ChangedItem {
    Item now;
    std::vector<MemberChange> changes;
};

/// Returns a member that is a text; empty if the thing has no such text.
std::string TextMember(const Item& item, const std::string& name);

struct Differences {
    std::vector<Item> gone;
    std::vector<Item> appeared;
    std::vector<ChangedItem> changed;

    bool IsEmpty() const { return gone.empty() && appeared.empty() && changed.empty(); }
};

/// Returns the differences, in the order of `before` for what is gone and of `now` for the rest. Of
/// several things with one key, those that are equal belong together, then the first to the first.
Differences FindDifferences(const std::vector<Item>& before, const std::vector<Item>& now);

}  // namespace qv::view
