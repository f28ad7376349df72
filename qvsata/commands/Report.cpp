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
#include "source/Namespaces.h"

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

report::Details ReadDetails(const service::ProviderHost& host, const view::PublishedHost& published,
                            const view::OsDisks& disks, std::size_t mostJoins) {
    report::Details details;
    details.topology = ReadTopology(host, published, disks);
    details.explanation = ReadExplanation(host, disks.disks, mostJoins).explanation;
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
    const view::PublishedHost published = ReadInstances(host.Published(), view::topologyClasses);
    const auto& computers = view::InstancesOf(published, "QV_WinComputerSystem");
    read.name = computers.empty() ? "" : computers.front().Text("Name");
    if (isDetailed) {
        read.details = ReadDetails(host, published, read.disks, options.MostRows());
        read.keyWarnings = read.details->explanation.keyWarnings;
    } else {
        read.keyWarnings = view::KeyWarningLines(read.disks.disks);
    }
    // It asks all sources, so that none is taken for read that was not asked.
    const std::vector<SourceUse> uses = ReadSourceUses(host);
    if (isDetailed) {
        std::ranges::transform(uses, std::back_inserter(read.details->sources), SourceOf);
    }
    const std::vector<service::SourceQuery> queries = host.Journal().Queries();
    read.disksAreRead = !IsUnread(queries, cimNamespace, "Win32_DiskDrive");
    std::ranges::transform(UnreadSources(queries), std::back_inserter(read.unread), UnreadSourceOf);
    return read;
}

/// Calls a function, and keeps what its error says.
template <typename Body>
void Noting(std::string& failure, Body body) try {
    body();
} catch (const std::exception& error) {
    failure = error.what();
    throw;
}

/// Reads one of many recordings. What keeps it from being read is in the report, too.
void ReadOneOfMany(MachineRun& run, const Machine& machine, bool isDetailed, Reported& reported) {
    std::optional<report::Host> read;
    std::string failure;
    bool isComplete = true;
    const bool succeeds = Succeeds(machine.name, [&] {
        Noting(failure, [&] {
            isComplete = run.On(machine, [&](const service::ProviderHost& host) {
                Noting(failure, [&] { read = ReadHost(host, machine.options, isDetailed); });
            });
        });
    });
    if (!read) {
        read.emplace();
        read->recording = machine.name;
        read->failure = failure;
    }
    reported.hosts.push_back(std::move(*read));
    reported.exitCode = WorseOf(reported.exitCode, !succeeds    ? failed
                                                   : isComplete ? 0
                                                                : incomplete);
}

Machine MachineOf(const std::string& name, const std::string& recording, const Options& options) {
    Machine machine{name, options};
    machine.options.host = recording;
    return machine;
}

/// Compares each recording of a computer with the next one.
class Sequence {
public:
    void Add(const service::ProviderHost& host, const std::string& recording) {
        const service::ComputerNames& names = host.Recordings()->Present()->Computer();
        names_ = names_.value_or(names);
        isOfOne_ = isOfOne_ && *names_ == names;
        view::Snapshot now = ReadSnapshot(host, recording);
        if (before_) {
            steps_.push_back({before_->name, recording, CompareHosts(*before_, now).events});
        }
        before_ = std::move(now);
    }

    bool IsOfOneComputer() const { return isOfOne_; }

    std::vector<report::Step> Take() { return std::move(steps_); }

private:
    std::optional<service::ComputerNames> names_;
    bool isOfOne_ = true;
    std::optional<view::Snapshot> before_;
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
        const bool isComplete =
            run.On(MachineOf(isOnly ? "" : recording, recording, options),
                   [&](const service::ProviderHost& host) {
                       if (!isOnly) {
                           sequence.Add(host, recording);
                       }
                       if (&recording == &recordings.back()) {
                           Options present = options;
                           present.host = recording;
                           reported.hosts.push_back(ReadHost(host, present, true));
                       }
                   });
        if (!sequence.IsOfOneComputer()) {
            throw CommandError(recording + ": not a recording of the computer of " +
                               recordings.front());
        }
        reported.exitCode = WorseOf(reported.exitCode, isComplete ? 0 : incomplete);
    }
    if (reported.hosts.empty()) {
        throw CommandEnd(incomplete);
    }
    reported.hosts.front().details->steps = sequence.Take();
}

Reported ReadHosts(const Options& options) {
    MachineRun run(options);
    Reported reported;
    if (options.live || (options.hosts.size() == 1 && !IsFolder(options.hosts.front()))) {
        ReadOnly(run, options, reported);
        return reported;
    }
    std::vector<std::string> recordings;
    for (const std::string& path : options.hosts) {
        std::ranges::move(RecordingsIn(path), std::back_inserter(recordings));
    }
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
        const bool isOneHost = options.hosts.size() == 1 && !IsFolder(options.hosts.front());
        if (!options.laterHosts.empty() && !isOneHost) {
            throw CLI::ValidationError("--then", "needs one recording as --host");
        }
        RunReport(*arguments);
    });
}

}  // namespace qv::tool
