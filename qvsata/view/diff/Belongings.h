#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/view/diff/HostDiff.h"

namespace qv::view {

/// The instances that belong to one disk, or to none.
struct Belongings {
    std::vector<const Item*> gone;
    std::vector<const Item*> appeared;
    std::vector<const ChangedItem*> changed;

    bool IsEmpty() const { return gone.empty() && appeared.empty() && changed.empty(); }
};

/// Returns "10 instances and 14 associations".
std::string CountText(const std::vector<const Item*>& items);

/// Shares the instances that differ out to the disks whose IDs are in their paths. Of several such
/// disks the ID of one is part of the other's: the longest counts.
class Owners {
public:
    /// The differences must outlive the object.
    explicit Owners(const HostDiff& diff);

    /// Returns what belongs to the disk with the key, or with an empty key to no disk. The next
    /// call with that key, for another disk with the same ID, returns nothing.
    Belongings Take(const std::string& key) { return std::exchange(byKey_[key], {}); }

private:
    Belongings& Of(const Item& instance);

    const std::vector<Item>& disks_;
    std::map<std::string, Belongings> byKey_;
};

}  // namespace qv::view
