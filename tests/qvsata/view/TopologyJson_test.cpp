#include "qvsata/view/TopologyJson.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using nlohmann::json;

TEST(TopologyJson, OfNothingHasEveryMember) {
    EXPECT_EQ(json(view::TopologyAsJson({})), json::parse(R"({"computer": null, "controllers": [],
        "looseChannels": [], "looseDisks": [], "collection": null})"));
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
        "name": "AHCI", "deviceId": "C", "status": "OK", "statusCode": 2,
        "driver": {"name": "msahci", "version": null}, "firmware": null, "bios": null,
        "channels": [{"name": "4&0", "deviceId": "CH", "status": "no status", "statusCode": null,
            "disks": [{"number": 3, "model": "M", "serialNumber": null, "firmwareRevision": null,
                "deviceId": "D", "status": "Pred Fail", "statusCode": 5,
                "failurePredicted": true, "sizeBytes": 1000,
                "partition": {"bootable": false, "boot": null, "primary": null}}]}],
        "disks": []}])"));
}

}  // namespace
}  // namespace qv::test
