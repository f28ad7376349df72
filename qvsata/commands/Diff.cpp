#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Snapshot.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/view/diff/DiffJson.h"
#include "qvsata/view/diff/DiffText.h"

namespace qv::tool {
namespace {

struct DiffArguments {
    std::vector<std::string> recordings;
    Options options;
    AnswerFormat format = AnswerFormat::text;
};

using Pair = std::array<Machine, 2>;

Machine Recorded(const std::string& recording, const DiffArguments& given) {
    Machine machine{recording, given.options};
    machine.options.host = recording;
    machine.options.live = false;
    return machine;
}

std::string NameIn(const std::string& recording) {
    return recording.substr(recording.find_last_of("/\\") + 1);
}

/// Returns the recordings with one name in two folders. Reports on standard error those of which
/// only one folder has one, and makes `exitCode` that of a failure.
std::vector<Pair> PairsOf(const DiffArguments& given, int& exitCode) {
    std::map<std::string, std::vector<std::string>> byName;
    for (const std::string& folder : given.recordings) {
        for (const std::string& recording : RecordingsIn(folder)) {
            byName[NameIn(recording)].push_back(recording);
        }
    }
    std::vector<Pair> pairs;
    for (const auto& [name, recordings] : byName) {
        if (recordings.size() == 2) {
            pairs.push_back(
                {Recorded(recordings.front(), given), Recorded(recordings.back(), given)});
        } else {
            WriteErrorLine(recordings.front() + ": no recording of this name in the other folder");
            exitCode = failed;
        }
    }
    return pairs;
}

/// Compares two machines and prints the difference. Returns the exit code.
int Compare(MachineRun& run, const Pair& machines, const DiffArguments& given, bool isOneOfMany) {
    std::vector<view::Snapshot> snapshots;
    bool isComplete = true;
    for (const Machine& machine : machines) {
        const bool isRead = run.On(machine, [&](const service::ProviderHost& host) {
            snapshots.push_back(ReadSnapshot(host, machine.name));
        });
        isComplete = isComplete && isRead;
    }
    if (snapshots.size() < machines.size()) {
        return incomplete;
    }
    const view::HostDiff diff = view::CompareHosts(snapshots.front(), snapshots.back());
    if (given.format == AnswerFormat::json) {
        const nlohmann::ordered_json content = view::DiffAsJson(diff);
        Print(isOneOfMany ? DocumentLine(content) : DocumentText(content));
    } else {
        PrintFitted(view::DiffAsText(diff));
    }
    if (!isComplete) {
        return incomplete;
    }
    return diff.IsEmpty() ? 0 : different;
}

int CompareFolders(const DiffArguments& given) {
    MachineRun run(given.options);
    int exitCode = 0;
    for (const Pair& pair : PairsOf(given, exitCode)) {
        int ofPair = failed;
        Succeeds(pair.front().name, [&] { ofPair = Compare(run, pair, given, true); });
        exitCode = WorseOf(exitCode, ofPair);
    }
    return exitCode;
}

int CompareTwo(const DiffArguments& given) {
    MachineRun run(given.options);
    const Machine live{"this machine", given.options};
    return Compare(run,
                   {Recorded(given.recordings.front(), given),
                    given.options.live ? live : Recorded(given.recordings.back(), given)},
                   given, false);
}

void RunDiff(const DiffArguments& given) {
    const bool areFolders = std::ranges::all_of(given.recordings, IsFolder);
    const int exitCode =
        areFolders && !given.options.live ? CompareFolders(given) : CompareTwo(given);
    if (exitCode != 0) {
        throw CommandEnd(exitCode);
    }
}

}  // namespace

void AddDiff(CLI::App& program) {
    const auto arguments = std::make_shared<DiffArguments>();
    CLI::App* command = program.add_subcommand(
        "diff", "what differs between two recordings, and the events that the change raises");
    command
        ->add_option("recordings", arguments->recordings,
                     "recorded hosts (JSON files), or two folders whose files are paired by name")
        ->type_name("FROM TO");
    command->add_flag("--live", arguments->options.live,
                      "this machine's own management service in place of the second recording");
    AddProviderOptions(*command, arguments->options);
    AddAnswerFormat(*command, arguments->format);
    command->parse_complete_callback([arguments] {
        constexpr std::size_t sides = 2;
        if (arguments->recordings.size() + (arguments->options.live ? 1 : 0) != sides) {
            throw CLI::ValidationError("give two recordings, or one and --live");
        }
    });
    command->footer(
        "Exit code: 0 if nothing differs, 4 if something does, 3 if a source could not be read.\n"
        "Examples: qvsata diff hosts/drill/0-healthy.json hosts/drill/3-failed.json\n"
        "          qvsata diff hosts/drill hosts/drill --format json");
    command->callback([arguments] { RunDiff(*arguments); });
}

}  // namespace qv::tool
