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

/// The event of a disk whose status code changes; empty when it raises none. Each of the codes that
/// have an event of their own raises it; any other raises "601" unless the old code says nothing
/// of the disk (0 and 1).
std::string_view EventOfStatusChange(std::uint32_t oldStatus, std::uint32_t newStatus);

/// A disk that something happened to, as it is now, or as it was when it disappeared.
struct DiskChange {
    std::string_view eventId;  ///< one of event_id
    DiskRecord disk;
};

/// What happened between two looks at the disks, which are told apart by their device IDs: first to
/// the disks of `current`, in its order, then those of `previous` that are gone. A disk that
/// appeared is appended to `previous`; one whose status was 1 there and is now one without an event
/// of its own gets status 0 there.
std::vector<DiskChange> FindDiskChanges(const DiskList& current, DiskList& previous);

}  // namespace qv
