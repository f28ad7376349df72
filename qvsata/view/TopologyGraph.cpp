#include "qvsata/view/TopologyGraph.h"

#include <algorithm>
#include <utility>

#include "qvsata/view/AssociationGraph.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

std::string_view ColourOf(const Health& health) {
    switch (SeverityOf(health)) {
        case Severity::fine:
            return "palegreen";
        case Severity::failed:
            return "lightcoral";
        case Severity::unknown:
        case Severity::degraded:
        case Severity::failurePredicted:
            break;
    }
    return "khaki";
}

class DiskGraph {
public:
    /// Adds a node and returns its name.
    std::string Add(const std::string& label, std::string_view colour) {
        const std::string name = "node" + std::to_string(count_++);
        text_ += "    " + name + " [label=" + QuotedForGraph(label) +
                 ", fillcolor=" + std::string(colour) + "];\n";
        return name;
    }

    void AddDisks(const std::vector<Disk>& disks, const std::string& parent) {
        for (const Disk& disk : disks) {
            const Health health = HealthOf(disk);
            const std::string number = disk.number ? DriveNumberText(disk.number) + ' ' : "";
            Join(parent, Add(number + OrDash(disk.model) + '\n' + GigabytesText(disk.size) + '\n' +
                                 Printable(health.word),
                             ColourOf(health)));
        }
    }

    void AddChannel(const Channel& channel, const std::string& parent) {
        if (channel.disks.empty()) {
            return;
        }
        const std::string node =
            Add("channel " + OrDash(channel.name) + '\n' + Printable(channel.status.word),
                ColourOf(channel.status));
        Join(parent, node);
        AddDisks(channel.disks, node);
    }

    void AddController(const Controller& controller, const std::string& host) {
        const bool hasDisks = !controller.disks.empty() ||
                              std::ranges::any_of(controller.channels, [](const Channel& channel) {
                                  return !channel.disks.empty();
                              });
        if (!hasDisks) {
            return;
        }
        const std::string node =
            Add(OrDash(controller.name) + '\n' + Printable(controller.status.word),
                ColourOf(controller.status));
        Join(host, node);
        for (const Channel& channel : controller.channels) {
            AddChannel(channel, node);
        }
        AddDisks(controller.disks, node);
    }

    std::string Text() const {
        return "digraph topology {\n    rankdir=LR;\n    node [shape=box, style=filled];\n" +
               text_ + "}\n";
    }

    void Join(const std::string& from, const std::string& to) {
        text_ += "    " + from + " -> " + to + ";\n";
    }

private:
    std::size_t count_ = 0;
    std::string text_;
};

}  // namespace

std::string TopologyAsGraph(const Topology& topology) {
    DiskGraph graph;
    const std::string host = graph.Add(
        topology.computer.empty() ? "computer without a name" : Printable(topology.computer),
        "white");
    for (const Controller& controller : topology.controllers) {
        graph.AddController(controller, host);
    }
    for (const Channel& channel : topology.looseChannels) {
        graph.AddChannel(channel, host);
    }
    graph.AddDisks(topology.looseDisks, host);
    for (const std::string& device : topology.failingOthers) {
        graph.Join(host,
                   graph.Add("failure predicted, unknown device\n" + Printable(device), "khaki"));
    }
    const Sight& sight = topology.sight;
    for (const auto& [isRead, what] :
         {std::pair(sight.disks, "disks"), std::pair(sight.controllers, "controllers"),
          std::pair(sight.attachments, "attachments"),
          std::pair(sight.predictions, "failure predictions")}) {
        if (!isRead) {
            graph.Join(host, graph.Add(std::string(what) + " not readable", "khaki"));
        }
    }
    return graph.Text();
}

}  // namespace qv::view
