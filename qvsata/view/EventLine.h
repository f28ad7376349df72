#pragma once

#include <map>
#include <span>
#include <string>

#include "qvsata/view/PublishedObject.h"
#include "qvsata/view/StyledText.h"

namespace qv::view {

/// The status of each disk as its source words it ("Pred Fail"), by device ID.
using DiskStatuses = std::map<std::string, std::string, std::less<>>;

/// The statuses of instances of QV_SATADiskDrive; "no status" where one says nothing of it.
DiskStatuses StatusesOf(std::span<const PublishedObject> disks);

/// What happened to a disk, as one line with its line feed: the time, the event's ID and what it
/// means, the model, what changed, and the device ID.
/// @param indication an instance of QV_SATADeviceIndication
/// @param before the statuses before it
/// @param now the statuses since
StyledText EventLine(const PublishedObject& indication, const DiskStatuses& before,
                     const DiskStatuses& now);

}  // namespace qv::view
