#include <algorithm>
#include <memory>

#include "catalogue/Classes.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
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
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        if (given.all && given.view != View::graph) {
            throw CLI::ValidationError("--all", "needs --format dot");
        }
        switch (given.view) {
            case View::tree:
                return PrintFitted(
                    view::TopologyAsText(ReadTopology(host), ColumnsOf(Stream::output)));
            case View::json:
                return PrintDocument(host, view::TopologyAsJson(ReadTopology(host)));
            case View::graph:
                return Print(given.all ? Graph(host.Published())
                                       : view::TopologyAsGraph(ReadTopology(host)));
        }
    });
}

}  // namespace qv::tool
