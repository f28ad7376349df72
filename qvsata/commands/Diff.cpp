#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Snapshot.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"
#include "qvsata/view/diff/DiffJson.h"
#include "qvsata/view/diff/DiffText.h"

namespace qv::tool {
namespace {

enum class DiffFormat { text, json };

struct DiffArguments {
    std::vector<std::string> recordings;
    Options options;
    DiffFormat format = DiffFormat::text;
};

/// Returns the two machines, in order.
std::vector<Machine> MachinesOf(const DiffArguments& given) {
    std::vector<Machine> machines;
    for (const std::string& recording : given.recordings) {
        machines.push_back({recording, given.options});
        machines.back().options.host = recording;
        machines.back().options.live = false;
    }
    if (given.options.live) {
        machines.push_back({"this machine", given.options});
    }
    return machines;
}

void RunDiff(const DiffArguments& given) {
    const std::vector<Machine> machines = MachinesOf(given);
    std::vector<view::Snapshot> snapshots;
    const bool isComplete = RunOnEach(machines, [&](const service::ProviderHost& host) {
        snapshots.push_back(ReadSnapshot(host, machines[snapshots.size()].name));
    });
    if (snapshots.size() < machines.size()) {
        throw IncompleteAnswer();
    }
    const view::HostDiff diff = view::CompareHosts(snapshots.front(), snapshots.back());
    if (given.format == DiffFormat::json) {
        Print(DocumentText(view::DiffAsJson(diff)));
    } else {
        PrintFitted(view::DiffAsText(diff));
    }
    if (!isComplete) {
        throw IncompleteAnswer();
    }
    if (!diff.IsEmpty()) {
        throw DifferentAnswer();
    }
}

}  // namespace

void AddDiff(CLI::App& program) {
    const auto arguments = std::make_shared<DiffArguments>();
    CLI::App* command = program.add_subcommand(
        "diff", "what differs between two recordings, and the events that the change raises");
    command->add_option("recordings", arguments->recordings, "recorded hosts (JSON files)")
        ->type_name("FROM TO");
    command->add_flag("--live", arguments->options.live,
                      "this machine's own management service in place of the second recording");
    AddProviderOptions(*command, arguments->options);
    AddFormatOption<DiffFormat>(*command, {{"text", DiffFormat::text}, {"json", DiffFormat::json}},
                                arguments->format);
    command->parse_complete_callback([arguments] {
        constexpr std::size_t sides = 2;
        if (arguments->recordings.size() + (arguments->options.live ? 1 : 0) != sides) {
            throw CLI::ValidationError("give two recordings, or one and --live");
        }
    });
    command->footer(
        "Exit code: 0 if nothing differs, 4 if something does, 3 if a source could not be read.\n"
        "Example: qvsata diff hosts/drill/0-healthy.json hosts/drill/3-failed.json");
    command->callback([arguments] { RunDiff(*arguments); });
}

}  // namespace qv::tool
