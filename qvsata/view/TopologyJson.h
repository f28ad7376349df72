#pragma once

#include "nlohmann/json.hpp"
#include "qvsata/view/Topology.h"

namespace qv::view {

/// Returns a topology as a JSON document. Every member is always present: a value that is not
/// published is null, a list without elements is empty.
///
///     computer          name or null
///     controllers       [controller: name, deviceId, status, statusCode, driver, firmware, bios
///                       (each {name, version} or null), channels, disks]
///     looseChannels     channels of no published controller
///     looseDisks        disks that are not attached to a published object
///     collection        {status, statusCode} or null
///
/// A channel has name, deviceId, status, statusCode, disks. A disk has model, serialNumber,
/// firmwareRevision, deviceId, status, statusCode, sizeBytes (a number), bootable, bootPartition,
/// primaryPartition (of the partition that its storage extent shows).
nlohmann::ordered_json TopologyAsJson(const Topology& topology);

}  // namespace qv::view
