#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "qvsata/view/diff/Differences.h"
#include "qvsata/view/events/DiskEvent.h"
#include "source/DiskInventory.h"

namespace qv::view {

/// What is compared of a machine.
struct Snapshot {
    std::string name;      ///< of the recording, or "this machine"
    std::string computer;  ///< its published name; empty if it has none
    OsDisks disks;
    std::vector<Item> instances;          ///< published, see InstanceItem
    std::optional<DiskList> watched;      ///< the disks that raise events; nothing if not readable
    std::set<std::string> unreadMembers;  ///< of a disk, that rest on an unread source
    std::set<std::string> unreadClasses;  ///< published, that rest on an unread source
};

/// Returns a published instance as it is compared.
/// @param members the object in JSON, with its `__RELPATH`
Item InstanceItem(nlohmann::ordered_json members, bool isAssociation);

/// The differences between two machines, or between two times of one.
struct HostDiff {
    struct Side {
        std::string name;
        std::string computer;
    };
    Side before;
    Side now;
    std::vector<Item> disksOfEither;   ///< those of both are here once, as they are now
    std::optional<Differences> disks;  ///< nothing if those of one side could not be read
    Differences instances;
    std::optional<std::vector<DiskEvent>> events;  ///< nothing if they cannot be known
    std::set<std::string> unreadMembers;           ///< members of disks that are not compared
    std::set<std::string> unreadClasses;           ///< published classes that are not compared

    /// Returns whether nothing that is compared differs.
    bool IsEmpty() const;
    /// Returns whether everything is compared.
    bool IsComplete() const;
};

/// Compares two machines: disks by plug-and-play ID, instances by path, both ignoring case. What
/// could not be read of one of them is not compared. The events are those that the provider's rule
/// raises when the first machine becomes the second; none if they do not differ.
HostDiff CompareHosts(const Snapshot& before, const Snapshot& now);

}  // namespace qv::view
