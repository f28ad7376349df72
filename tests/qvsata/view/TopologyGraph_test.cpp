#include "qvsata/view/TopologyGraph.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

const view::Health fine{2, "OK"};

view::Disk GraphDisk(std::int64_t number, const view::Health& health) {
    view::Disk disk;
    disk.number = number;
    disk.model = "M \"1\"";
    disk.size = 500'107'862'016;
    disk.status = health;
    return disk;
}

TEST(TopologyGraph, HasTheDisksAndWhatTheyHangOffColouredByHealth) {
    view::Topology topology;
    topology.computer = "host";
    topology.controllers.push_back(
        {"AHCI", "C", fine, {}, {}, {}, {{"4&0", "CH", fine, {GraphDisk(0, fine)}}}, {}});
    topology.looseDisks = {GraphDisk(1, {6, "Error"}), GraphDisk(2, {5, "Pred Fail"})};
    EXPECT_EQ(view::TopologyAsGraph(topology),
              R"(digraph topology {
    rankdir=LR;
    node [shape=box, style=filled];
    node0 [label="host", fillcolor=white];
    node1 [label="AHCI\nOK", fillcolor=palegreen];
    node0 -> node1;
    node2 [label="channel 4&0\nOK", fillcolor=palegreen];
    node1 -> node2;
    node3 [label="#0 M \"1\"\n500.1 GB\nOK", fillcolor=palegreen];
    node2 -> node3;
    node4 [label="#1 M \"1\"\n500.1 GB\nError", fillcolor=lightcoral];
    node0 -> node4;
    node5 [label="#2 M \"1\"\n500.1 GB\nPred Fail", fillcolor=khaki];
    node0 -> node5;
}
)");
}

TEST(TopologyGraph, LeavesOutWhatHasNoDisk) {
    view::Topology topology;
    topology.computer = "host";
    topology.controllers.push_back({"AHCI", "C", fine, {}, {}, {}, {{"4&0", "CH", fine, {}}}, {}});
    topology.looseChannels.push_back({"4&1", "CH", fine, {}});
    EXPECT_EQ(view::TopologyAsGraph(topology),
              "digraph topology {\n    rankdir=LR;\n    node [shape=box, style=filled];\n"
              "    node0 [label=\"host\", fillcolor=white];\n}\n");
}

TEST(TopologyGraph, SaysWhatCouldNotBeRead) {
    view::Topology topology;
    topology.sight = {false, false, false, false};
    const std::string graph = view::TopologyAsGraph(topology);
    EXPECT_NE(graph.find("[label=\"disks not readable\""), std::string::npos);
    EXPECT_NE(graph.find("[label=\"controllers not readable\""), std::string::npos);
    EXPECT_NE(graph.find("[label=\"attachments not readable\""), std::string::npos);
    EXPECT_NE(graph.find("[label=\"failure predictions not readable\""), std::string::npos);
}

}  // namespace
}  // namespace qv::test
