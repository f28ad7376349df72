#pragma once

#include <string>
#include <string_view>

#include "events/AlertIndication.h"
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

/// The ID of an event, which the indication does not repeat as the event's own property; empty when
/// it has none.
std::string EventIdOf(const InstanceRecord& event);

/// Fills an indication with what every alert says (FillCommonProperties, which has its status) and
/// then with what the event says: of the latter, what the indication refuses is dropped.
Status FillDeviceIndication(PropertyTarget& indication, const InstanceRecord& event,
                            const AlertSources& sources);

}  // namespace qv
