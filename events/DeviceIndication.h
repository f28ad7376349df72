#pragma once

#include <string_view>

#include "platform/Clock.h"
#include "source/DiskInventory.h"
#include "source/InstanceRecord.h"

namespace qv {

/// The class of the events of disks.
inline constexpr std::string_view deviceIndicationClass = "QV_SATADeviceIndication";

/// An event: what happened to the disk (a DiskChange's event ID) and when. The disk is referred to
/// as an instance of its class, by the key values of the inventory.
InstanceRecord BuildDeviceIndication(const DiskRecord& disk, std::string_view eventId,
                                     const platform::LocalTime& time);

}  // namespace qv
