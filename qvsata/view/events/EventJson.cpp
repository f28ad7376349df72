#include "qvsata/view/events/EventJson.h"

#include "qvsata/view/JsonValues.h"

namespace qv::view {
namespace {

using nlohmann::ordered_json;

ordered_json StatusOf(const std::optional<OsDisk>& disk) {
    if (!disk) {
        return nullptr;
    }
    return StatusAsJson(disk->health);
}

}  // namespace

ordered_json EventAsJson(const DiskEvent& event) {
    const OsDisk* const disk = event.Seen();
    return {{"time", event.time},
            {"event", event.eventId},
            {"meaning", event.meaning.words},
            {"severity", event.meaning.severity},
            {"sentence", SentenceOf(event)},
            {"host", OrNull(event.host)},
            {"number", disk == nullptr ? ordered_json() : OrNull(disk->number)},
            {"model", OrNull(event.model)},
            {"serialNumber", disk == nullptr ? ordered_json() : OrNull(disk->serialNumber)},
            {"deviceId", OrNull(event.deviceId)},
            {"oldStatus", StatusOf(event.before)},
            {"newStatus", StatusOf(event.now)}};
}

}  // namespace qv::view
