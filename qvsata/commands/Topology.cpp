#include <algorithm>
#include <array>
#include <memory>

#include "catalogue/Classes.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/system/Console.h"
#include "qvsata/view/AssociationGraph.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/Topology.h"
#include "qvsata/view/TopologyGraph.h"
#include "qvsata/view/TopologyJson.h"
#include "qvsata/view/TopologyText.h"
#include "source/Namespaces.h"

namespace qv::tool {
namespace {

enum class View { tree, json, graph };

view::Topology ReadTopology(const service::ProviderHost& host) {
    const view::OsDisks disks = ReadOsDisks(host);
    WriteErrorFitted(view::KeyWarnings(disks.disks) + view::PredictionWarnings(disks));
    view::Topology topology =
        view::BuildTopology(ReadInstances(host.Published(), view::topologyClasses), disks);
    const std::vector<service::SourceQuery> queries = host.Journal().Queries();
    topology.sight.disks = !IsUnread(queries, cimNamespace, "Win32_DiskDrive");
    topology.sight.controllers = !IsUnread(queries, cimNamespace, "Win32_IDEController");
    topology.sight.attachments = !IsUnread(queries, cimNamespace, "Win32_IDEControllerDevice");
    topology.sight.predictions =
        !IsUnread(queries, wmiNamespace, "MSStorageDriver_FailurePredictStatus");
    return topology;
}

/// Returns whether the computer has no name that can be read; says so on standard error.
bool LacksName(const service::Namespace& nameSpace) {
    constexpr std::array<std::string_view, 1> computerClass{"QV_WinComputerSystem"};
    const view::PublishedHost host = ReadInstances(nameSpace, computerClass);
    const bool lacksName =
        std::ranges::any_of(view::InstancesOf(host, computerClass.front()),
                            [](const view::PublishedObject& one) { return one.path.empty(); });
    if (lacksName) {
        WriteErrorFitted("the computer's name cannot be read: most instances have no path\n");
    }
    return lacksName;
}

std::string Graph(const service::Namespace& nameSpace) {
    std::vector<std::string_view> classes;
    std::ranges::transform(PublishedClasses(), std::back_inserter(classes), &PublishedClass::name);
    const view::PublishedHost host = ReadInstances(nameSpace, classes);
    std::vector<view::PublishedObject> objects;
    for (const std::string_view className : classes) {
        std::ranges::copy(view::InstancesOf(host, className), std::back_inserter(objects));
    }
    return view::AssociationGraph(objects);
}

void PrintView(const service::ProviderHost& host, View view, bool all) {
    switch (view) {
        case View::tree:
            return PrintFitted(view::TopologyAsText(ReadTopology(host), ColumnsOf(Stream::output)));
        case View::json:
            return PrintDocument(host, view::TopologyAsJson(ReadTopology(host)));
        case View::graph:
            return Print(all ? Graph(host.Published()) : view::TopologyAsGraph(ReadTopology(host)));
    }
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
        bool lacksName = false;
        RunOnProvider(arguments->options, [&](const service::ProviderHost& host) {
            PrintView(host, arguments->view, arguments->all);
            lacksName = LacksName(host.Published());
        });
        if (lacksName) {
            throw CommandEnd(incomplete);
        }
    });
}

}  // namespace qv::tool
