#include <array>
#include <chrono>
#include <memory>
#include <optional>

#include "qvsata/capture/ReplaceFile.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/metrics/MachineFamilies.h"
#include "qvsata/output/Output.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/session/SourceUses.h"
#include "qvsata/view/Topology.h"
#include "source/Namespaces.h"

namespace qv::tool {
namespace {

/// The classes of which the computer's name and the consolidated status are properties.
constexpr std::array<std::string_view, 2> summaryClasses{"QV_WinComputerSystem",
                                                         "QV_SATAStorageCollection"};

/// Returns the classes that were queried.
std::vector<metrics::Source> Queried(const std::vector<SourceUse>& uses) {
    std::vector<metrics::Source> sources;
    for (const SourceUse& use : uses) {
        if (use.queries != 0) {
            sources.push_back(
                {use.source.name, use.IsRead() ? std::optional(use.rows) : std::nullopt, use.time});
        }
    }
    return sources;
}

metrics::Machine ReadMachine(const service::ProviderHost& host) {
    using std::chrono::system_clock;
    metrics::Machine machine;
    machine.version = QV_VERSION;
    machine.time = std::chrono::floor<std::chrono::seconds>(system_clock::now());
    machine.disks = ReadOsDisks(host);
    const view::Topology summary =
        view::BuildTopology(ReadInstances(host.Published(), summaryClasses));
    machine.computer = summary.computer;
    // The uses come last: they count all queries, also those of the lines above.
    machine.sources = Queried(ReadSourceUses(host));
    machine.disksAreRead = !IsUnread(host.Journal().Queries(), cimNamespace, "Win32_DiskDrive");
    machine.collection = machine.disksAreRead ? summary.collection : std::nullopt;
    return machine;
}

}  // namespace

void AddMetrics(CLI::App& program) {
    struct Arguments {
        Options options;
        std::string file;
        unsigned expected = 0;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "metrics", "disks and sources as metrics for Prometheus (docs/MONITORING.md)");
    AddSourceOptions(*command, arguments->options);
    command
        ->add_option(
            "-o,--output", arguments->file,
            "the file, such as qvsata.prom; replaced as a whole (default: standard output)")
        ->type_name("FILE");
    CLI::Option* const expect = command->add_option("--expect", arguments->expected,
                                                    "how many disks the machine should publish");
    CheckWhole(expect, 0, "N");
    command->footer("Example: qvsata metrics --live -o qvsata.prom");
    OnProvider(*command, arguments, [expect](const auto& host, const Arguments& given) {
        metrics::Machine machine = ReadMachine(host);
        if (expect->count() != 0) {
            machine.expectedDisks = given.expected;
        }
        const std::string text = metrics::ExpositionText(metrics::FamiliesOf(machine));
        if (given.file.empty()) {
            return Print(text);
        }
        capture::ReplaceFile(FromUtf8(given.file), text);
    });
}

}  // namespace qv::tool
