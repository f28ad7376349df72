#include "qvsata/view/TopologyJson.h"

#include "qvsata/view/JsonValues.h"
#include "qvsata/view/SerialNumber.h"

namespace qv::view {
namespace {

using nlohmann::ordered_json;

template <typename Item, typename Convert>
ordered_json Array(const std::vector<Item>& items, Convert convert) {
    ordered_json array = ordered_json::array();
    for (const Item& item : items) {
        array.push_back(convert(item));
    }
    return array;
}

ordered_json DiskAsJson(const Disk& disk) {
    return {{"number", OrNull(disk.number)},
            {"model", OrNull(disk.model)},
            {"size", OrNull(disk.size)},
            {"serialNumber", OrNull(disk.serialNumber)},
            {"decodedSerialNumber", OrNull(DecodedSerialNumber(disk.serialNumber))},
            {"firmware", OrNull(disk.firmware)},
            {"deviceId", disk.deviceId},
            {"status", StatusAsJson(disk.status)},
            {"failurePredicted", OrNull(disk.failureIsPredicted)},
            {"partition",
             {{"bootable", OrNull(disk.bootable)},
              {"boot", OrNull(disk.bootPartition)},
              {"primary", OrNull(disk.primaryPartition)}}}};
}

ordered_json UnpublishedAsJson(const OsDisk& disk) {
    return {{"number", OrNull(disk.number)},
            {"model", OrNull(disk.model)},
            {"status", StatusAsJson(disk.health)},
            {"failurePredicted", OrNull(disk.failureIsPredicted)},
            {"whyUnpublished", disk.whyUnpublished}};
}

ordered_json ChannelAsJson(const Channel& channel) {
    ordered_json members{{"name", OrNull(channel.name)}, {"deviceId", channel.deviceId}};
    members["status"] = StatusAsJson(channel.status);
    members["disks"] = Array(channel.disks, DiskAsJson);
    return members;
}

ordered_json SoftwareAsJson(const std::optional<Software>& software) {
    if (!software) {
        return nullptr;
    }
    return {{"name", OrNull(software->name)}, {"version", OrNull(software->version)}};
}

ordered_json ControllerAsJson(const Controller& controller) {
    ordered_json members{{"name", OrNull(controller.name)}, {"deviceId", controller.deviceId}};
    members["status"] = StatusAsJson(controller.status);
    members["driver"] = SoftwareAsJson(controller.driver);
    members["firmware"] = SoftwareAsJson(controller.firmware);
    members["bios"] = SoftwareAsJson(controller.bios);
    members["channels"] = Array(controller.channels, ChannelAsJson);
    members["disks"] = Array(controller.disks, DiskAsJson);
    return members;
}

}  // namespace

ordered_json TopologyAsJson(const Topology& topology) {
    ordered_json document;
    document["computer"] = OrNull(topology.computer);
    document["controllers"] = Array(topology.controllers, ControllerAsJson);
    document["looseChannels"] = Array(topology.looseChannels, ChannelAsJson);
    document["looseDisks"] = Array(topology.looseDisks, DiskAsJson);
    document["unpublishedDisks"] = Array(topology.unpublished, UnpublishedAsJson);
    document["publishedConsolidatedStatus"] =
        topology.collection ? StatusAsJson(*topology.collection) : ordered_json(nullptr);
    document["failingOthers"] = topology.failingOthers;
    return document;
}

}  // namespace qv::view
