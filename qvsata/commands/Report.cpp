#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/capture/ReplaceFile.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Explanation.h"
#include "qvsata/commands/Snapshot.h"
#include "qvsata/output/Output.h"
#include "qvsata/report/IndexPage.h"
#include "qvsata/report/Page.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/HostTopology.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/session/SourceUses.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/diff/HostDiff.h"
#include "qvsata/view/text/Characters.h"

namespace qv::tool {
namespace {

struct ReportArguments {
    Options options;
    std::string file;
};

/// The hosts that were read so far, and the exit code that they make.
struct Reported {
    std::vector<report::Host> hosts;
    int exitCode = 0;
};

/// Returns "2026-11-22 10:03:12 UTC".
std::string PresentTime() {
    using namespace std::chrono;
    const auto now = floor<seconds>(system_clock::now());
    const auto day = floor<days>(now);
    const year_month_day date(day);
    const hh_mm_ss time(now - day);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02ld:%02ld:%02ld UTC",
                  static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<long>(time.hours().count()),
                  static_cast<long>(time.minutes().count()),
                  static_cast<long>(time.seconds().count()));
    return text.data();
}

void AddOnce(std::vector<std::string>& lines, const std::string& line) {
    if (std::ranges::count(lines, line) == 0) {
        lines.push_back(line);
    }
}

/// A published class without which a part of the topology is not seen.
struct SeenBy {
    std::string_view className;
    bool view::Sight::*part;
};

constexpr std::array seenBy{
    SeenBy{"QV_SATADiskDrive", &view::Sight::disks},
    SeenBy{"QV_SATAPortController", &view::Sight::controllers},
    SeenBy{"QV_SATALogicalPort", &view::Sight::controllers},
    SeenBy{"QV_TSATAProtocolEndpoint", &view::Sight::attachments},
    SeenBy{"QV_SATAPortControllerSATALogicalPort", &view::Sight::attachments},
    SeenBy{"QV_SATALogicalPortISATAProtocolEndpoint", &view::Sight::attachments},
    SeenBy{"QV_SATAInitiatorTargetLogicalUnitPath", &view::Sight::attachments},
    SeenBy{"QV_TSATAProtocolEndpointSATADiskDrive", &view::Sight::attachments},
};

/// Reads the details of a host. What cannot be explained adds a line to its failures.
report::Details ReadDetails(const service::ProviderHost& host, const view::PublishedHost& published,
                            report::Host& read, std::size_t mostJoins) {
    report::Details details;
    details.topology = ReadTopology(host, published, read.disks);
    for (const SeenBy& one : seenBy) {
        if (!published.contains(one.className)) {
            details.topology.sight.*one.part = false;
        }
    }
    try {
        details.explanation = ReadExplanation(host, read.disks.disks, mostJoins).explanation;
    } catch (const CommandError& error) {
        AddOnce(read.failures, error.what());
    }
    return details;
}

report::Source SourceOf(const SourceUse& use) {
    return {std::string(use.source.nameSpace),
            std::string(use.source.name),
            RowsText(use),
            MillisecondsText(use),
            StatusText(use),
            use.queries != 0 && !use.IsRead()};
}

report::UnreadSource UnreadSourceOf(const service::SourceQuery& query) {
    return {query.nameSpace, query.className, EndText(query),
            std::string(LossWithout(query.nameSpace, query.className))};
}

/// Reads a host; with the details if it `isDetailed`.
report::Host ReadHost(const service::ProviderHost& host, const Options& options, bool isDetailed) {
    report::Host read;
    read.recording = options.host;
    read.disks = ReadOsDisks(host);
    const view::PublishedHost published =
        ReadInstances(host.Published(), AllPublishedClasses(),
                      [&read](const std::string& failure) { read.failures.push_back(failure); });
    const auto& computers = view::InstancesOf(published, "QV_WinComputerSystem");
    read.name = computers.empty() ? "" : computers.front().Text("Name");
    if (isDetailed) {
        read.details = ReadDetails(host, published, read, options.MostRows());
        // The uses come last: they count all queries, also those of the line above.
        std::ranges::transform(SourceUsesOf(host), std::back_inserter(read.details->sources),
                               SourceOf);
    }
    read.keyWarnings = read.details && read.details->explanation
                           ? read.details->explanation->keyWarnings
                           : view::KeyWarningLines(read.disks.disks);
    std::ranges::transform(UnreadSources(host.Journal().Queries()), std::back_inserter(read.unread),
                           UnreadSourceOf);
    return read;
}

/// Names on standard error what the provider failed to do on a machine.
void WriteFailures(const Machine& machine, const std::vector<std::string>& failures) {
    for (const std::string& failure : failures) {
        WriteErrorLine((machine.name.empty() ? "" : machine.name + ": ") + failure);
    }
}

/// Returns the exit code of a machine of which something is in the report.
int ExitCodeOf(bool isComplete, bool hasFailures) {
    return !isComplete ? incomplete : hasFailures ? failed : 0;
}

/// Reads one of many recordings. What keeps it from being read is in the report, too.
void ReadOneOfMany(MachineRun& run, const Machine& machine, bool isDetailed, Reported& reported) {
    report::Host read;
    bool isComplete = true;
    const bool succeeds = Succeeds(machine.name, [&] {
        try {
            isComplete = run.On(machine, [&](const service::ProviderHost& host) {
                read = ReadHost(host, machine.options, isDetailed);
                WriteFailures(machine, read.failures);
            });
        } catch (const std::exception& error) {
            read.recording = machine.name;
            read.failure = error.what();
            throw;
        }
    });
    reported.exitCode =
        WorseOf(reported.exitCode, ExitCodeOf(isComplete, !succeeds || !read.failures.empty()));
    reported.hosts.push_back(std::move(read));
}

Machine MachineOf(const std::string& name, const std::string& recording, const Options& options) {
    Machine machine{name, options};
    machine.options.host = recording;
    return machine;
}

/// Compares each recording of a computer with the next one.
class Sequence {
public:
    /// Adds the next recording. If the provider fails on it, the events up to it and from it are
    /// not known.
    /// @param failures takes a line on what failed, unless it has it
    void Add(const service::ProviderHost& host, const std::string& recording,
             std::vector<std::string>& failures) {
        isNamed_ = service::IsNamed(host.Recordings()->Present()->Computer());
        const std::optional<view::Snapshot> before = std::exchange(before_, std::nullopt);
        if (!last_.empty()) {
            steps_.push_back({last_, recording, std::nullopt});
        }
        last_ = recording;
        try {
            before_ = ReadSnapshot(host, recording);
        } catch (const CommandError& error) {
            AddOnce(failures, error.what());
        }
        if (before && before_) {
            steps_.back().events = CompareHosts(*before, *before_).events;
        }
    }

    /// Returns whether the last recording names its computer.
    bool IsNamed() const { return isNamed_; }

    std::vector<report::Step> Take() { return std::move(steps_); }

private:
    bool isNamed_ = true;
    std::string last_;                      ///< the recording; empty before the first
    std::optional<view::Snapshot> before_;  ///< nothing if it could not be read
    std::vector<report::Step> steps_;
};

/// Reads the machine, or the recordings of one computer: the last one and the events before it.
void ReadOnly(MachineRun& run, const Options& options, Reported& reported) {
    std::vector<std::string> recordings = options.hosts;
    std::ranges::copy(options.laterHosts, std::back_inserter(recordings));
    recordings.resize(std::max<std::size_t>(recordings.size(), 1));  // none is the machine itself
    Sequence sequence;
    for (const std::string& recording : recordings) {
        const bool isOnly = recordings.size() == 1;
        const Machine machine = MachineOf(isOnly ? "" : recording, recording, options);
        std::vector<std::string> failures;
        const bool isComplete = run.On(machine, [&](const service::ProviderHost& host) {
            if (&recording == &recordings.back()) {
                reported.hosts.push_back(ReadHost(host, machine.options, true));
                failures = reported.hosts.back().failures;
            }
            if (!isOnly) {
                sequence.Add(host, recording, failures);
            }
            WriteFailures(machine, failures);
        });
        // MachineRun refuses different names. Two computers without names would be taken for one.
        if (!sequence.IsNamed()) {
            throw CommandError(recording + ": the recording does not name its computer");
        }
        reported.exitCode = WorseOf(reported.exitCode, ExitCodeOf(isComplete, !failures.empty()));
    }
    reported.hosts.front().details->steps = sequence.Take();
}

Reported ReadHosts(const Options& options) {
    MachineRun run(options);
    Reported reported;
    if (options.live || NameOneRecording(options.hosts)) {
        ReadOnly(run, options, reported);
        return reported;
    }
    const std::vector<std::string> recordings = RecordingsIn(options.hosts);
    const bool areDetailed = recordings.size() <= report::mostDetailed;
    for (const std::string& recording : recordings) {
        ReadOneOfMany(run, MachineOf(recording, recording, options), areDetailed, reported);
    }
    return reported;
}

/// Names on standard error the hosts without a name, and returns whether there are none.
bool AreNamed(const std::vector<report::Host>& hosts) {
    bool areNamed = true;
    for (const report::Host& host : hosts) {
        if (host.name.empty() && host.failure.empty()) {
            areNamed = false;
            WriteErrorFitted((hosts.size() == 1 ? "" : view::Printable(host.recording) + ": ") +
                             "the computer's name cannot be read: most instances have no path\n");
        }
    }
    return areNamed;
}

void RunReport(const ReportArguments& given) {
    Reported reported = ReadHosts(given.options);
    if (!AreNamed(reported.hosts)) {
        reported.exitCode = WorseOf(reported.exitCode, incomplete);
    }
    capture::ReplaceFile(FromUtf8(given.file),
                         report::PageOf(reported.hosts, {"qvsata " QV_VERSION, PresentTime()}));
    PrintFitted({{view::Printable(given.file + ": " + report::HeadlineOf(reported.hosts)) + '\n'}});
    if (reported.exitCode != 0) {
        throw CommandEnd(reported.exitCode);
    }
}

}  // namespace

void AddReport(CLI::App& program) {
    const auto arguments = std::make_shared<ReportArguments>();
    CLI::App* command = program.add_subcommand(
        "report", "writes a page for a browser: health, topology, disks, and why not published");
    AddFleetOptions(*command, arguments->options);
    AddThen(*command, arguments->options);
    command->add_option("-o,--output", arguments->file, "the page (HTML); replaced if it exists")
        ->type_name("FILE")
        ->required();
    command->footer(
        "The page is complete in itself, without scripts. Several hosts have an index.\n"
        "Examples: qvsata report --host hosts/mixed-buses-failing.json -o report.html\n"
        "          qvsata report --host hosts -o hosts.html");
    command->callback([arguments] {
        const Options& options = arguments->options;
        if (!options.laterHosts.empty() && !NameOneRecording(options.hosts)) {
            throw CLI::ValidationError("--then", "needs one recording as --host");
        }
        RunReport(*arguments);
    });
}

}  // namespace qv::tool
