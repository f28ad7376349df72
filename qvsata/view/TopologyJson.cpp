#include "qvsata/view/TopologyJson.h"

#include "qvsata/view/JsonValues.h"

namespace qv::view {
namespace {

using nlohmann::ordered_json;

void AddStatus(const Health& status, ordered_json& members) {
    members["status"] = status.word;
    members["statusCode"] = OrNull(status.code);
}

template <typename Item, typename Convert>
ordered_json Array(const std::vector<Item>& items, Convert convert) {
    ordered_json array = ordered_json::array();
    for (const Item& item : items) {
        array.push_back(convert(item));
    }
    return array;
}

ordered_json DiskAsJson(const Disk& disk) {
    ordered_json members{{"number", OrNull(disk.number)},
                         {"model", OrNull(disk.model)},
                         {"serialNumber", OrNull(disk.serialNumber)},
                         {"firmwareRevision", OrNull(disk.firmware)},
                         {"deviceId", disk.deviceId}};
    AddStatus(disk.status, members);
    members["failurePredicted"] = disk.failureIsPredicted;
    members["sizeBytes"] = OrNull(disk.size);
    members["partition"] = {{"bootable", OrNull(disk.bootable)},
                            {"boot", OrNull(disk.bootPartition)},
                            {"primary", OrNull(disk.primaryPartition)}};
    return members;
}

ordered_json ChannelAsJson(const Channel& channel) {
    ordered_json members{{"name", OrNull(channel.name)}, {"deviceId", channel.deviceId}};
    AddStatus(channel.status, members);
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
    AddStatus(controller.status, members);
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
    document["collection"] = nullptr;
    if (topology.collection) {
        document["collection"] = ordered_json::object();
        AddStatus(*topology.collection, document["collection"]);
    }
    return document;
}

}  // namespace qv::view
