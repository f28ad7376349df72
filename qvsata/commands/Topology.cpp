#include <algorithm>
#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/HostTopology.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Session.h"
#include "qvsata/system/Console.h"
#include "qvsata/view/AssociationGraph.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/Topology.h"
#include "qvsata/view/TopologyGraph.h"
#include "qvsata/view/TopologyJson.h"
#include "qvsata/view/TopologyText.h"

namespace qv::tool {
namespace {

enum class View { tree, json, graph };

std::string GraphOfAll(const view::PublishedHost& published) {
    std::vector<view::PublishedObject> objects;
    for (const std::string_view className : AllPublishedClasses()) {
        std::ranges::copy(view::InstancesOf(published, className), std::back_inserter(objects));
    }
    return view::AssociationGraph(objects);
}

/// Returns whether the computer has no name that can be read.
bool LacksName(const view::PublishedHost& published) {
    return std::ranges::any_of(view::InstancesOf(published, "QV_WinComputerSystem"),
                               [](const view::PublishedObject& one) { return one.path.empty(); });
}

void PrintTopology(const service::ProviderHost& host, const view::PublishedHost& published,
                   View view) {
    const view::OsDisks disks = ReadOsDisks(host);
    WriteErrorFitted(view::KeyWarnings(disks.disks) + view::PredictionWarnings(disks));
    const view::Topology topology = ReadTopology(host, published, disks);
    switch (view) {
        case View::tree:
            return PrintFitted(view::TopologyAsText(topology, ColumnsOf(Stream::output)));
        case View::json:
            return PrintDocument(host, view::TopologyAsJson(topology));
        case View::graph:
            return Print(view::TopologyAsGraph(topology));
    }
}

/// Returns whether the answer is complete but for sources that could not be read.
bool Answer(const service::ProviderHost& host, View view, bool all) {
    const view::PublishedHost published =
        all ? ReadInstances(host.Published(), AllPublishedClasses())
            : ReadInstances(host.Published(), view::topologyClasses);
    if (all) {
        Print(GraphOfAll(published));
    } else {
        PrintTopology(host, published, view);
    }
    if (LacksName(published)) {
        WriteErrorFitted("the computer's name cannot be read: most instances have no path\n");
        return false;
    }
    return true;
}

}  // namespace

void AddTopology(CLI::App& program) {
    struct Arguments {
        Options options;
        View view = View::tree;
        bool all = false;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "topology", "the host as a tree: controllers, channels, disks (dot: as a graph)");
    AddSourceOptions(*command, arguments->options);
    AddFormatOption<View>(*command,
                          {{"text", View::tree}, {"json", View::json}, {"dot", View::graph}},
                          arguments->view);
    command->add_flag("--all", arguments->all, "with --format dot: every instance and association");
    command->footer("Example: qvsata topology --host hosts/ahci-desktop.json");
    command->callback([arguments] {
        if (arguments->all && arguments->view != View::graph) {
            throw CLI::ValidationError("--all", "needs --format dot");
        }
        bool isComplete = true;
        RunOnProvider(arguments->options, [&](const service::ProviderHost& host) {
            isComplete = Answer(host, arguments->view, arguments->all);
        });
        if (!isComplete) {
            throw CommandEnd(incomplete);
        }
    });
}

}  // namespace qv::tool
