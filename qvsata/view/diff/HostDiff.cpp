#include "qvsata/view/diff/HostDiff.h"

#include <algorithm>
#include <iterator>

#include "qvsata/view/OsDiskJson.h"
#include "qvsata/view/PublishedObject.h"
#include "source/Text.h"

namespace qv::view {
namespace {

/// Returns the members of OsDiskAsJson, those of the status beside the others.
nlohmann::ordered_json FlatMembers(const OsDisk& disk) {
    nlohmann::ordered_json members = OsDiskAsJson(disk);
    const nlohmann::ordered_json status = members["status"];
    members["status"] = status["code"];
    members["statusWord"] = status["word"];
    return members;
}

using Names = std::set<std::string>;

Names Union(Names one, const Names& other) {
    one.insert(other.begin(), other.end());
    return one;
}

/// Returns the disks without the members that are not compared. A disk without ID is known by its
/// drive number.
std::vector<Item> DiskItems(const std::vector<OsDisk>& disks, const Names& leftOut) {
    std::vector<Item> items;
    for (const OsDisk& disk : disks) {
        Item item{FoldCase(EncodeDeviceId(disk.deviceId)), FlatMembers(disk)};
        if (item.key.empty()) {
            item.key = item.members["number"].dump();
        }
        for (const std::string& name : leftOut) {
            item.members.erase(name);
        }
        items.push_back(std::move(item));
    }
    return items;
}

std::vector<Item> WithoutClasses(const std::vector<Item>& instances, const Names& classes) {
    std::vector<Item> kept;
    std::ranges::copy_if(instances, std::back_inserter(kept), [&classes](const Item& item) {
        return !classes.contains(TextMember(item, "__CLASS"));
    });
    return kept;
}

std::vector<DiskEvent> EventsBetween(const Snapshot& before, const Snapshot& now) {
    const KnownDisks disksBefore = KnownDisksOf(before.disks.disks);
    const KnownDisks disksNow = KnownDisksOf(now.disks.disks);
    DiskList previous = *before.watched;
    std::vector<DiskEvent> events;
    std::ranges::transform(
        FindDiskChanges(*now.watched, previous), std::back_inserter(events),
        [&](const DiskChange& change) { return DescribeChange(change, disksBefore, disksNow); });
    return events;
}

}  // namespace

Item InstanceItem(nlohmann::ordered_json members, bool isAssociation) {
    Item item{{}, std::move(members), isAssociation};
    const std::string path = TextMember(item, "__RELPATH");
    item.key = IdentityOf(path.empty() ? TextMember(item, "__CLASS") : path);
    return item;
}

bool HostDiff::IsEmpty() const {
    return (!disks || disks->IsEmpty()) && instances.IsEmpty();
}

bool HostDiff::IsComplete() const {
    return disks && events && unreadMembers.empty() && unreadClasses.empty();
}

HostDiff CompareHosts(const Snapshot& before, const Snapshot& now) {
    HostDiff diff;
    diff.before = {before.name, before.computer};
    diff.now = {now.name, now.computer};
    diff.unreadMembers = Union(before.unreadMembers, now.unreadMembers);
    diff.unreadClasses = Union(before.unreadClasses, now.unreadClasses);
    if (before.disks.disksAreRead && now.disks.disksAreRead) {
        const std::vector<Item> items = DiskItems(now.disks.disks, diff.unreadMembers);
        diff.disks = FindDifferences(DiskItems(before.disks.disks, diff.unreadMembers), items);
        diff.disksOfEither = items;
        std::ranges::copy(diff.disks->gone, std::back_inserter(diff.disksOfEither));
    }
    diff.instances = FindDifferences(WithoutClasses(before.instances, diff.unreadClasses),
                                     WithoutClasses(now.instances, diff.unreadClasses));
    if (before.watched && now.watched) {
        diff.events = diff.IsEmpty() ? std::vector<DiskEvent>() : EventsBetween(before, now);
    }
    return diff;
}

}  // namespace qv::view
