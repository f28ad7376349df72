#pragma once

#include "nlohmann/json.hpp"
#include "qvsata/view/Topology.h"

namespace qv::view {

/// A topology as a JSON document. Every member is always there: what is not published is null, a
/// list of nothing is empty.
///
///     computer          name or null
///     controllers       [controller: name, deviceId, status, statusCode, driver, firmware, bios
///                       (each {name, version} or null), channels, disks]
///     looseChannels     channels of no published controller
///     looseDisks        disks attached to nothing that is published
///     collection        {status, statusCode} or null
///
/// A channel has name, deviceId, status, statusCode, disks. A disk has model, serialNumber,
/// firmwareRevision, deviceId, status, statusCode, sizeBytes (a number), bootable, bootPartition,
/// primaryPartition (of the partition that its storage extent shows).
nlohmann::ordered_json TopologyAsJson(const Topology& topology);

}  // namespace qv::view
