#pragma once

#include <string>
#include <string_view>

#include "events/AlertIndication.h"
#include "platform/Clock.h"
#include "source/DiskInventory.h"
#include "source/InstanceRecord.h"

namespace qv {

/// The class of disk events.
inline constexpr std::string_view deviceIndicationClass = "QV_SATADeviceIndication";

/// Returns an event: what happened to the disk (a DiskChange's event ID) and when. It refers to the
/// disk as an instance of its class, by the inventory's key values.
InstanceRecord BuildDeviceIndication(const DiskRecord& disk, std::string_view eventId,
                                     const platform::LocalTime& time);

/// Returns an event's ID, which the indication does not repeat as a property of the event; empty if
/// the event has none.
std::string EventIdOf(const InstanceRecord& event);

/// Fills the common properties (FillCommonProperties, whose failure it returns), then the event's
/// own. Own properties that the indication refuses are dropped.
Status FillDeviceIndication(PropertyTarget& indication, const InstanceRecord& event,
                            const AlertSources& sources);

}  // namespace qv
