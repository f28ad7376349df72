#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "qvsata/capture/ReplaceFile.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/metrics/MachineFamilies.h"
#include "qvsata/output/Output.h"
#include "qvsata/session/HostTopology.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceUses.h"

namespace qv::tool {
namespace {

/// The classes of which the computer's name, the consolidated status and the number of published
/// disks are seen.
constexpr std::array<std::string_view, 3> summaryClasses{
    "QV_WinComputerSystem", "QV_SATAStorageCollection", "QV_SATADiskDrive"};

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

/// When a recording was last changed; nothing for the machine itself.
std::optional<std::chrono::sys_seconds> ChangeOf(const Options& options) {
    using std::chrono::file_clock;
    if (options.host.empty()) {
        return std::nullopt;
    }
    const auto changed = std::filesystem::last_write_time(FromUtf8(options.host));
    return std::chrono::floor<std::chrono::seconds>(file_clock::to_sys(changed));
}

void ReadPublished(const service::ProviderHost& host, metrics::Machine& machine) {
    const view::PublishedHost published = ReadInstances(host.Published(), summaryClasses);
    const view::Topology summary = ReadTopology(host, published, machine.disks);
    machine.computer = summary.computer;
    if (summary.sight.disks) {
        machine.collection = summary.collection;
        machine.published = view::InstancesOf(published, summaryClasses.back()).size();
    }
}

/// What is known of a machine, and why not more.
struct Seen {
    metrics::Machine machine;
    std::optional<CommandError> failure = {};
};

void Attempt(std::optional<CommandError>& failure, const std::function<void()>& step) {
    try {
        step();
    } catch (const CommandError& error) {
        failure = failure.value_or(error);
    }
}

Seen Look(const service::ProviderHost& host) {
    using std::chrono::system_clock;
    Seen seen;
    metrics::Machine& machine = seen.machine;
    machine.version = QV_VERSION;
    machine.time = std::chrono::floor<std::chrono::seconds>(system_clock::now());
    machine.disks = ReadOsDisks(host);
    Attempt(seen.failure, [&] { ReadPublished(host, machine); });
    Attempt(seen.failure, [&] { QuerySources(host); });
    machine.sources = Queried(SourceUsesOf(host));
    return seen;
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
        Seen seen = Look(host);
        seen.machine.recorded = ChangeOf(given.options);
        if (expect->count() != 0) {
            seen.machine.expectedDisks = given.expected;
        }
        const std::string text = metrics::ExpositionText(metrics::FamiliesOf(seen.machine));
        if (given.file.empty()) {
            Print(text);
        } else {
            capture::ReplaceFile(FromUtf8(given.file), text);
        }
        if (seen.failure) {
            throw CommandError(*seen.failure);
        }
    });
}

}  // namespace qv::tool
