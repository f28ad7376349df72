#include "qvsata/view/events/DiskEvent.h"

#include <algorithm>
#include <array>
#include <set>

#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"
#include "source/Text.h"

namespace qv::view {
namespace {

constexpr std::string_view information = "information";
constexpr std::string_view warning = "warning";
constexpr std::string_view critical = "critical";

constexpr std::array meanings{
    EventMeaning{event_id::diskAppeared, "disk appeared", information, Style::plain},
    EventMeaning{event_id::otherStatus, "status unknown", warning, Style::caution},
    EventMeaning{event_id::statusOk, "disk OK", information, Style::good},
    EventMeaning{event_id::statusError, "disk error", critical, Style::bad},
    EventMeaning{event_id::statusDegraded, "disk degraded", warning, Style::caution},
    EventMeaning{event_id::failurePredicted, "failure predicted", critical, Style::bad},
    EventMeaning{event_id::diskDisappeared, "disk disappeared", warning, Style::caution},
};

/// Returns "2024-07-04 09:05:03" for "20240704090503.007000-000"; a text of another form unchanged.
std::string ReadableTime(const std::string& time) {
    constexpr std::size_t digits = 14;
    if (time.size() < digits) {
        return time;
    }
    return time.substr(0, 4) + '-' + time.substr(4, 2) + '-' + time.substr(6, 2) + ' ' +
           time.substr(8, 2) + ':' + time.substr(10, 2) + ':' + time.substr(12, 2);
}

std::optional<OsDisk> Find(const KnownDisks& disks, const std::string& deviceId) {
    const auto found = disks.find(deviceId);
    return found == disks.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

KnownDisks KnownDisksOf(const std::vector<OsDisk>& disks) {
    KnownDisks known;
    std::set<std::string> shared;
    for (const OsDisk& disk : disks) {
        const std::string id = EncodeDeviceId(ToUpper(disk.deviceId));
        if (!known.emplace(id, disk).second) {
            shared.insert(id);
        }
    }
    std::ranges::for_each(shared, [&known](const std::string& id) { known.erase(id); });
    return known;
}

EventMeaning MeaningOf(std::string_view eventId) {
    const auto* const found = std::ranges::find(meanings, eventId, &EventMeaning::eventId);
    return found == meanings.end() ? EventMeaning{"", "other event", warning, Style::plain}
                                   : *found;
}

const OsDisk* DiskEvent::Seen() const {
    if (now) {
        return &*now;
    }
    return before ? &*before : nullptr;
}

DiskEvent DescribeEvent(const PublishedObject& indication, const KnownDisks& before,
                        const KnownDisks& now) {
    DiskEvent event;
    event.eventId = indication.Text("EventID");
    event.meaning = MeaningOf(event.eventId);
    event.time = ReadableTime(indication.Text("EventTime"));
    event.host = indication.Text("SystemName");
    event.model = Trimmed(indication.Text("DeviceModel"));
    event.deviceId = indication.Text("DeviceID");
    event.before = Find(before, event.deviceId);
    event.now = Find(now, event.deviceId);
    return event;
}

DiskEvent DescribeChange(const DiskChange& change, const KnownDisks& before,
                         const KnownDisks& now) {
    DiskEvent event;
    event.eventId = change.eventId;
    event.meaning = MeaningOf(event.eventId);
    event.host = change.disk.systemName;
    event.model = Trimmed(change.disk.model);
    event.deviceId = change.disk.deviceId;
    event.before = Find(before, event.deviceId);
    event.now = Find(now, event.deviceId);
    return event;
}

std::string ChangeText(const DiskEvent& event) {
    const std::string before = event.before ? Printable(event.before->health.word) : "";
    const std::string now = event.now ? Printable(event.now->health.word) : "";
    if (event.eventId == event_id::diskAppeared) {
        return now.empty() ? "new" : "new, " + now;
    }
    if (event.eventId == event_id::diskDisappeared) {
        return before.empty() ? "gone" : "gone, was " + before;
    }
    if (now.empty()) {
        return before.empty() ? "" : "was " + before;
    }
    return before.empty() ? "now " + now : before + " → " + now;
}

std::string SentenceOf(const DiskEvent& event) {
    const OsDisk* const disk = event.Seen();
    std::string sentence =
        "Disk " + Printable(DiskName(disk == nullptr ? std::nullopt : disk->number, event.model));
    if (disk != nullptr && !disk->serialNumber.empty()) {
        sentence += " (S/N " + SerialNumberText(disk->serialNumber) + ')';
    }
    sentence += " of " + OrDash(event.host) + ": " + std::string(event.meaning.words);
    const std::string change = ChangeText(event);
    return sentence + (change.empty() ? "" : " (" + change + ')') + '.';
}

}  // namespace qv::view
