#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "events/DiskChanges.h"
#include "qvsata/view/OsDisk.h"
#include "qvsata/view/PublishedObject.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// The disks of the operating system by the ID that events give them.
using KnownDisks = std::map<std::string, OsDisk, std::less<>>;

/// Returns the disks by ID, without those that share theirs: an event does not say which it means.
KnownDisks KnownDisksOf(const std::vector<OsDisk>& disks);

/// What an event ID says.
struct EventMeaning {
    std::string_view eventId;   ///< see event_id
    std::string_view words;     ///< "failure predicted"
    std::string_view severity;  ///< "information", "warning" or "critical"
    Style style;
};

/// Returns the meaning of an event ID; "other event", a warning, for an unknown one.
EventMeaning MeaningOf(std::string_view eventId);

/// An event of a disk with what is known of the disk before and after it.
struct DiskEvent {
    EventMeaning meaning;
    std::string eventId;
    std::string time;  ///< local time of the host: "2024-07-04 09:05:03"
    std::string host;
    std::string model;
    std::string deviceId;
    std::optional<OsDisk> before;  ///< unset if the disk was not there
    std::optional<OsDisk> now;     ///< unset if the disk is not there

    /// Returns the disk now, or before if it is gone; null if it was never seen.
    const OsDisk* Seen() const;
};

/// Describes an instance of QV_SATADeviceIndication.
/// @param before the disks before the event
/// @param now the disks after it
DiskEvent DescribeEvent(const PublishedObject& indication, const KnownDisks& before,
                        const KnownDisks& now);

/// Describes a change that the provider's rule found between two machines, or between two times of
/// one: an event without a time.
DiskEvent DescribeChange(const DiskChange& change, const KnownDisks& before, const KnownDisks& now);

/// Returns what changed: "OK → Pred Fail", "new, OK", "gone, was OK"; empty if it is not known.
std::string ChangeText(const DiskEvent& event);

/// Returns the event as a sentence: "Disk #2 Halden HD4000F05 (S/N HDF4Z1107Q2M) of srv01: failure
/// predicted (OK → Pred Fail)."
std::string SentenceOf(const DiskEvent& event);

}  // namespace qv::view
