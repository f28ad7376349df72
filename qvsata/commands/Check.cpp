#include <array>
#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>

#include "qvsata/commands/Commands.h"
#include "qvsata/output/Output.h"
#include "qvsata/session/HostTopology.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/session/SourceUses.h"
#include "qvsata/view/check/DiskCheck.h"

namespace qv::tool {
namespace {

constexpr std::array<std::string_view, 2> checkedClasses{"QV_SATADiskDrive",
                                                         "QV_SATAStorageCollection"};

view::CheckSubject LookAtDisks(const service::ProviderHost& host) {
    view::CheckSubject subject{ReadOsDisks(host)};
    try {
        const view::PublishedHost published = ReadInstances(host.Published(), checkedClasses);
        const view::Topology topology = ReadTopology(host, published, subject.all);
        if (topology.sight.disks) {
            subject.published = view::InstancesOf(published, checkedClasses.front()).size();
            subject.consolidated = topology.collection;
        }
        // A source without a part in the disks' health may tell of lost rights.
        QuerySources(host);
    } catch (const CommandError& error) {
        subject.unread.push_back({"published instances", error.what()});
    }
    for (const service::SourceQuery& query : UnreadSources(host.Journal().Queries())) {
        subject.unread.push_back(
            {query.className.empty() ? query.nameSpace : query.className, SourceLine(query)});
    }
    return subject;
}

}  // namespace

int ReportUnchecked(const Failure& failure) {
    const view::CheckResult result = view::FailedCheck(failure.reason, failure.details);
    Print(result.text);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        ReportOnErrors(failure);
    }
    return result.exitCode;
}

void AddCheck(CLI::App& program) {
    struct Arguments {
        Options options;
        std::optional<std::size_t> expected;
    };
    const auto arguments = std::make_shared<Arguments>();
    arguments->options.report = ReportUnchecked;
    CLI::App* command = program.add_subcommand(
        "check", "the health of all disks, as a monitoring plug-in: a line and an exit code");
    AddSourceOptions(*command, arguments->options);
    CheckWhole(command->add_option("--expect", arguments->expected,
                                   "published disks (QV_SATADiskDrive) that the host should have: "
                                   "fewer are CRITICAL, more a WARNING"),
               0, "N");
    command->footer(
        "Exit code: 0 OK, 1 WARNING, 2 CRITICAL, 3 UNKNOWN; of several the last of 0, 1, 3, 2.\n"
        "Disks that are not published count for the health, too.\n"
        "Example: qvsata check --host hosts/ahci-desktop.json --expect 3");
    command->callback([arguments] {
        view::CheckSubject subject;
        MachineRun(arguments->options)
            .On({{}, arguments->options},
                [&](const service::ProviderHost& host) { subject = LookAtDisks(host); });
        subject.expected = arguments->expected;
        const view::CheckResult result = view::CheckDisks(subject);
        Print(result.text);
        throw CommandEnd(result.exitCode);
    });
}

}  // namespace qv::tool
