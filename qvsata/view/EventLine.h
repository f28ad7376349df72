#pragma once

#include <map>
#include <span>
#include <string>

#include "qvsata/view/PublishedObject.h"
#include "qvsata/view/StyledText.h"

namespace qv::view {

/// The status of each disk in its source's words ("Pred Fail"), by device ID.
using DiskStatuses = std::map<std::string, std::string, std::less<>>;

/// Returns the statuses of instances of QV_SATADiskDrive; "no status" for an instance without one.
DiskStatuses StatusesOf(std::span<const PublishedObject> disks);

/// Returns an event as one line, with its line feed: time, event ID, meaning, model, change, device
/// ID.
/// @param indication an instance of QV_SATADeviceIndication
/// @param before the statuses before the event
/// @param now the statuses after it
StyledText EventLine(const PublishedObject& indication, const DiskStatuses& before,
                     const DiskStatuses& now);

}  // namespace qv::view
