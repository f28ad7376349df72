#include "qvsata/view/TopologyJson.h"

#include <gtest/gtest.h>

#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {
namespace {

using nlohmann::json;

TEST(TopologyJson, OfNothingHasEveryMember) {
    EXPECT_EQ(json(view::TopologyAsJson({})), json::parse(R"({"computer": null, "controllers": [],
        "looseChannels": [], "looseDisks": [], "unpublishedDisks": [],
        "publishedConsolidatedStatus": null, "failingOthers": []})"));
}

TEST(TopologyJson, NestsDisksInTheirChannel) {
    view::Disk disk;
    disk.number = 3;
    disk.failureIsPredicted = true;
    disk.model = "M";
    disk.deviceId = "D";
    disk.status = {5, "Pred Fail"};
    disk.size = 1000;
    disk.bootable = false;
    view::Topology topology;
    topology.controllers.push_back({"AHCI",
                                    "C",
                                    {2, "OK"},
                                    view::Software{"msahci", ""},
                                    {},
                                    {},
                                    {{"4&0", "CH", {std::nullopt, "no status"}, {disk}}},
                                    {}});
    EXPECT_EQ(json(view::TopologyAsJson(topology)["controllers"]), json::parse(R"([{
        "name": "AHCI", "deviceId": "C", "status": {"code": 2, "word": "OK"},
        "driver": {"name": "msahci", "version": null}, "firmware": null, "bios": null,
        "channels": [{"name": "4&0", "deviceId": "CH", "status": {"code": null, "word": "no status"},
            "disks": [{"number": 3, "model": "M", "size": 1000, "serialNumber": null,
                "decodedSerialNumber": null, "firmware": null, "deviceId": "D",
                "status": {"code": 5, "word": "Pred Fail"}, "failurePredicted": true,
                "partition": {"bootable": false, "boot": null, "primary": null}}]}],
        "disks": []}])"));
}

TEST(TopologyJson, HasTheDisksThatAreNotPublishedAndThePublishedStatusOfAll) {
    view::Topology topology;
    view::OsDisk other = NumberedDisk(4, {2, "OK"});
    other.model = "M";
    other.whyUnpublished = "bus is SCSI";
    topology.unpublished = {other};
    topology.collection = {2, "OK"};
    const json document = view::TopologyAsJson(topology);
    EXPECT_EQ(document["unpublishedDisks"], json::parse(R"([{"number": 4, "model": "M",
        "status": {"code": 2, "word": "OK"}, "failurePredicted": null,
        "whyUnpublished": "bus is SCSI"}])"));
    EXPECT_EQ(document["publishedConsolidatedStatus"], json::parse(R"({"code": 2, "word": "OK"})"));
}

}  // namespace
}  // namespace qv::test
