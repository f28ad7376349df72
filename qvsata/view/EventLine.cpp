#include "qvsata/view/EventLine.h"

#include <algorithm>
#include <array>

#include "events/DiskChanges.h"
#include "qvsata/view/Columns.h"

namespace qv::view {
namespace {

struct Meaning {
    std::string_view eventId;
    std::string_view words;
    Style style;
};

constexpr std::array meanings{
    Meaning{event_id::diskAppeared, "disk appeared", Style::plain},
    Meaning{event_id::otherStatus, "status unknown", Style::caution},
    Meaning{event_id::statusOk, "disk OK", Style::good},
    Meaning{event_id::statusError, "disk error", Style::bad},
    Meaning{event_id::statusDegraded, "disk degraded", Style::caution},
    Meaning{event_id::failurePredicted, "failure predicted", Style::bad},
    Meaning{event_id::diskDisappeared, "disk disappeared", Style::caution},
};
constexpr std::size_t widestMeaning = 17;
constexpr std::size_t usualModel = 24;
constexpr std::size_t usualChange = 22;

Meaning MeaningOf(std::string_view eventId) {
    const auto* found = std::ranges::find(meanings, eventId, &Meaning::eventId);
    return found == meanings.end() ? Meaning{eventId, "other event", Style::plain} : *found;
}

/// Returns "2024-07-04 09:05:03" for "20240704090503.007000-000"; a text of another form unchanged.
std::string ReadableTime(const std::string& time) {
    constexpr std::size_t digits = 14;
    if (time.size() < digits) {
        return time;
    }
    std::string text;
    for (std::size_t place = 0; place < digits; ++place) {
        if (place == 4 || place == 6) {
            text += '-';
        } else if (place == 8) {
            text += ' ';
        } else if (place == 10 || place == 12) {
            text += ':';
        }
        text += time[place];
    }
    return text;
}

std::string WhatChanged(std::string_view eventId, const std::string* before,
                        const std::string* now) {
    if (eventId == event_id::diskAppeared) {
        return now == nullptr ? "new" : "new, " + *now;
    }
    if (eventId == event_id::diskDisappeared) {
        return before == nullptr ? "gone" : "gone, was " + *before;
    }
    if (now == nullptr) {
        return before == nullptr ? "" : "was " + *before;
    }
    return before == nullptr ? "now " + *now : *before + " → " + *now;
}

const std::string* Find(const DiskStatuses& statuses, const std::string& deviceId) {
    const auto found = statuses.find(deviceId);
    return found == statuses.end() ? nullptr : &found->second;
}

std::string Column(std::size_t width, const std::string& text) {
    return text + Padding(width, text) + "  ";
}

}  // namespace

DiskStatuses StatusesOf(std::span<const PublishedObject> disks) {
    DiskStatuses statuses;
    for (const PublishedObject& disk : disks) {
        const std::string status = disk.Text("StatusDescriptions");
        statuses[disk.Text("DeviceID")] = status.empty() ? "no status" : status;
    }
    return statuses;
}

StyledText EventLine(const PublishedObject& indication, const DiskStatuses& before,
                     const DiskStatuses& now) {
    const std::string eventId = indication.Text("EventID");
    const std::string deviceId = indication.Text("DeviceID");
    const Meaning meaning = MeaningOf(eventId);
    const std::string changed = WhatChanged(eventId, Find(before, deviceId), Find(now, deviceId));
    return {{ReadableTime(indication.Text("EventTime")) + "  "},
            {Column(0, eventId) + Column(widestMeaning, std::string(meaning.words)), meaning.style},
            {Column(usualModel, std::string(Trimmed(indication.Text("DeviceModel")))) +
             Column(usualChange, changed)},
            {deviceId + '\n', Style::faint}};
}

}  // namespace qv::view
