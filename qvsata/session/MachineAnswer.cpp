#include "qvsata/session/MachineAnswer.h"

#include <sstream>
#include <vector>

#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/service/MachineQueries.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/Session.h"
#include "qvsata/view/JsonValues.h"
#include "qvsata/view/text/Characters.h"
#include "source/HostIdentity.h"

namespace qv::tool {
namespace {

/// Returns the recorded computer's name, as the provider chooses it; empty if it has none.
std::string ComputerOf(const service::ProviderHost& host) {
    const service::RecordedNames names(host.Recordings()->Present()->Computer());
    return HostName(names).value_or("");
}

void RunOnOne(Options options, const std::function<void(const service::ProviderHost&)>& command) {
    if (!options.live) {
        options.host = options.hosts.front();
    }
    RunOnProvider(options, command);
}

}  // namespace

void MachineAnswer::PrintText(view::StyledText text) const {
    if (IsOneOfMany()) {
        const std::string computer = ComputerOf(host_);
        const std::string heading =
            view::Printable(computer.empty() ? recording_ : computer + " (" + recording_ + ')');
        text.insert(text.begin(), {((*printed_)++ == 0 ? "" : "\n") + heading + '\n'});
    }
    PrintFitted(text);
}

void MachineAnswer::PrintJson(nlohmann::ordered_json content) const {
    if (!IsOneOfMany()) {
        return PrintDocument(host_, std::move(content));
    }
    ++*printed_;
    nlohmann::ordered_json members{{"host", view::OrNull(ComputerOf(host_))},
                                   {"recording", recording_}};
    members.update(content);
    Print(DocumentLine(WithUnread(host_, std::move(members))));
}

void MachineAnswer::Warn(const std::string& lines) const {
    std::istringstream rest(lines);
    std::string text;
    for (std::string line; std::getline(rest, line);) {
        text += (IsOneOfMany() ? view::Printable(recording_) + ": " : "") + line + '\n';
    }
    WriteErrorFitted(text);
}

void RunOnRecordings(
    const Options& options,
    const std::function<void(const service::ProviderHost&, const MachineAnswer&)>& command) {
    if (options.live || NameOneRecording(options.hosts)) {
        return RunOnOne(options, [&](const service::ProviderHost& host) {
            command(host, MachineAnswer(host));
        });
    }
    const std::vector<std::string> recordings = RecordingsIn(options.hosts);
    MachineRun run(options);
    std::size_t printed = 0;
    int exitCode = 0;
    for (const std::string& recording : recordings) {
        Machine machine{recording, options};
        machine.options.host = recording;
        bool isComplete = true;
        const bool succeeds = Succeeds(recording, [&] {
            isComplete = run.On(machine, [&](const service::ProviderHost& host) {
                command(host, MachineAnswer(host, recording, printed));
            });
        });
        exitCode = WorseOf(exitCode, !succeeds ? failed : isComplete ? 0 : incomplete);
    }
    if (printed == 0 && exitCode == 0) {
        throw CommandError("nothing found in " + std::to_string(recordings.size()) + " recordings");
    }
    if (exitCode != 0) {
        throw CommandEnd(exitCode);
    }
}

}  // namespace qv::tool
