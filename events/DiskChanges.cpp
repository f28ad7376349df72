#include "events/DiskChanges.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace qv {
namespace {

struct StatusEvent {
    std::uint32_t status;
    std::string_view eventId;
};

constexpr std::array statusEvents{
    StatusEvent{2, event_id::statusOk},
    StatusEvent{3, event_id::statusDegraded},
    StatusEvent{5, event_id::failurePredicted},
    StatusEvent{6, event_id::statusError},
};

constexpr std::uint32_t unknownStatus = 0;
constexpr std::uint32_t otherStatus = 1;

bool HasEventOfItsOwn(std::uint32_t status) {
    return std::ranges::find(statusEvents, status, &StatusEvent::status) != statusEvents.end();
}

}  // namespace

std::string_view EventOfStatusChange(std::uint32_t oldStatus, std::uint32_t newStatus) {
    if (newStatus == oldStatus) {
        return {};
    }
    const auto* own = std::ranges::find(statusEvents, newStatus, &StatusEvent::status);
    if (own != statusEvents.end()) {
        return own->eventId;
    }
    return oldStatus == unknownStatus || oldStatus == otherStatus ? std::string_view{}
                                                                  : event_id::otherStatus;
}

std::vector<DiskChange> FindDiskChanges(const DiskList& current, DiskList& previousDisks) {
    // All or nothing: without memory for the rest, the previous disks stay as they were.
    DiskList previous = previousDisks;
    std::vector<DiskChange> changes;
    // The first disk of each ID, by position, because the list grows.
    std::unordered_map<std::string, std::size_t> previousPlaces;
    for (std::size_t place = 0; place < previous.size(); ++place) {
        previousPlaces.emplace(previous[place].deviceId, place);
    }
    std::unordered_set<std::string_view> present;
    for (const DiskRecord& disk : current) {
        present.insert(disk.deviceId);
        const auto [known, appeared] = previousPlaces.emplace(disk.deviceId, previous.size());
        if (appeared) {
            previous.push_back(disk);
            changes.push_back({event_id::diskAppeared, disk});
            continue;
        }
        std::uint32_t& oldStatus = previous[known->second].statusCode;
        const std::string_view eventId = EventOfStatusChange(oldStatus, disk.statusCode);
        if (!eventId.empty()) {
            changes.push_back({eventId, disk});
        }
        if (oldStatus == otherStatus && !HasEventOfItsOwn(disk.statusCode)) {
            oldStatus = unknownStatus;
        }
    }
    for (const DiskRecord& disk : previous) {
        if (!present.contains(disk.deviceId)) {
            changes.push_back({event_id::diskDisappeared, disk});
        }
    }
    previousDisks.swap(previous);
    return changes;
}

}  // namespace qv
