#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "source/DiskInventory.h"

namespace qv {

/// The IDs of the disk events.
namespace event_id {
inline constexpr std::string_view diskAppeared = "600";
inline constexpr std::string_view otherStatus = "601";
inline constexpr std::string_view statusOk = "602";
inline constexpr std::string_view statusError = "603";
inline constexpr std::string_view statusDegraded = "604";
inline constexpr std::string_view failurePredicted = "605";
inline constexpr std::string_view diskDisappeared = "613";
}  // namespace event_id

/// Returns the event ID for a change of a disk's status code; empty if it raises none. A code with
/// an event of its own raises that event. Any other code raises "601", unless the old code was
/// unknown (0 or 1).
std::string_view EventOfStatusChange(std::uint32_t oldStatus, std::uint32_t newStatus);

/// A changed disk as it is now, or as it was when it disappeared.
struct DiskChange {
    std::string_view eventId;  ///< one of event_id
    DiskRecord disk;
};

/// Returns the changes between two polls. Disks are identified by device ID. The changes of the
/// disks of `current` come first, in its order, then the disks of `previous` that are gone. Updates
/// `previous`: appends a disk that appeared, and sets a status of 1 to 0 if the disk's new status
/// has no event of its own.
std::vector<DiskChange> FindDiskChanges(const DiskList& current, DiskList& previous);

}  // namespace qv
