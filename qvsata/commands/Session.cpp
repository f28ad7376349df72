#include "qvsata/commands/Session.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <map>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/commands/Deadline.h"
#include "qvsata/commands/ExitCodes.h"
#include "qvsata/commands/SourceReport.h"
#include "qvsata/mof/ShippedMof.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/output/OutputMof.h"
#include "qvsata/output/OutputText.h"
#include "qvsata/recorded/HostFile.h"
#include "qvsata/service/StartProvider.h"
#include "qvsata/system/Console.h"
#include "qvsata/system/Process.h"
#include "qvsata/view/JsonValues.h"
#include "qvsata/view/text/Characters.h"

namespace qv::tool {
namespace {

using std::filesystem::path;

path FromUtf8(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

std::shared_ptr<const service::RecordedHost> ReadHost(const std::string& file) {
    return std::make_shared<service::RecordedHost>(service::ReadHostFile(FromUtf8(file)));
}

std::vector<std::shared_ptr<const service::RecordedHost>> ReadLaterHosts(
    const Options& options, const service::RecordedHost& first) {
    std::vector<std::shared_ptr<const service::RecordedHost>> hosts;
    for (const std::string& file : options.laterHosts) {
        hosts.push_back(ReadHost(file));
        if (hosts.back()->Computer() != first.Computer()) {
            throw CommandError(file + ": not a recording of the computer of " + options.host);
        }
    }
    return hosts;
}

/// Returns what the options say of the provider. The machine's facts are missing.
service::HostOptions HostOptionsOf(const Options& options) {
    const path here = ProgramFolder();
    service::HostOptions host;
    if (options.timeout != 0) {
        host.queryTimeout = std::chrono::milliseconds(std::chrono::seconds(options.timeout)) /
                            options.queriesInTime;
    }
    std::ranges::transform(options.installedMof, std::back_inserter(host.mofFiles), FromUtf8);
    const path mofFolder = options.mofFolder.empty() ? here : FromUtf8(options.mofFolder);
    for (const std::string_view file : service::shippedClassFiles) {
        host.mofFiles.push_back(mofFolder / file);
    }
    host.library = FromUtf8(options.library);
    host.programFolder = here;
    host.registered = options.registered;
    return host;
}

std::unique_ptr<service::ProviderHost> Start(const service::HostOptions& host) {
    if (const std::string reason = service::WhyNotStarted(host); !reason.empty()) {
        throw CommandError(reason);
    }
    try {
        return service::StartProvider(host);
    } catch (const RequestError& error) {
        throw CommandError("starting the provider: " + service::StatusText(error.status()));
    }
}

std::unique_ptr<service::ProviderHost> StartSession(
    const Options& options, const std::shared_ptr<service::SourceJournal>& journal) {
    service::HostOptions host = HostOptionsOf(options);
    host.journal = journal;
    if (!options.live) {
        host.recorded = ReadHost(options.host);
        host.laterRecordings = ReadLaterHosts(options, *host.recorded);
    }
    return Start(host);
}

/// Returns what begins each line on a machine.
std::string PrefixOf(const Machine& machine) {
    return machine.name.empty() ? "" : view::Printable(machine.name) + ": ";
}

/// Runs the command; returns whether every source was read.
bool RunOn(const Machine& machine, const std::shared_ptr<service::SourceJournal>& journal,
           const std::function<void(const service::ProviderHost&)>& command) {
    const std::string prefix = PrefixOf(machine);
    const auto host = StartSession(machine.options, journal);
    const auto unread = [&] { return UnreadLines(journal->Queries(), prefix); };
    try {
        command(*host);
    } catch (const CommandError& error) {
        if (unread().empty()) {
            throw;
        }
        WriteErrorFitted("qvsata: " + prefix + view::Printable(error.what()) + '\n');
    }
    WriteErrorFitted(unread());
    return unread().empty();
}

/// Names on standard error the paths that several objects of an answer have.
void WarnOfDoubles(const service::ObjectList& objects) {
    std::map<std::string, std::size_t> counts;
    for (const auto& object : objects) {
        ++counts[service::TextOf(*object, "__RELPATH")];
    }
    for (const auto& [path, count] : counts) {
        if (!path.empty() && count > 1) {
            WriteErrorFitted("warning: " + std::to_string(count) + " objects have the path " +
                             view::Printable(path) + '\n');
        }
    }
}

}  // namespace

bool RunOnEach(const std::vector<Machine>& machines,
               const std::function<void(const service::ProviderHost&)>& command) {
    std::vector<std::shared_ptr<service::SourceJournal>> journals;
    for (std::size_t count = 0; count < machines.size(); ++count) {
        journals.push_back(std::make_shared<service::SourceJournal>());
    }
    const Options& options = machines.front().options;
    std::optional<Deadline> deadline;
    if (options.timeout != 0 && !options.isEndless) {
        deadline.emplace(std::chrono::seconds(options.timeout), [&] {
            std::string unread;
            for (std::size_t index = 0; index < machines.size(); ++index) {
                unread += UnreadLines(journals[index]->Queries(), PrefixOf(machines[index]));
            }
            // Threads that wait for a source cannot be ended in any other way.
            WriteErrorFitted(TimeoutLines(unread, options.timeout));
            std::_Exit(incomplete);
        });
    }
    bool isComplete = true;
    for (std::size_t index = 0; index < machines.size(); ++index) {
        isComplete = RunOn(machines[index], journals[index], command) && isComplete;
    }
    return isComplete;
}

std::unique_ptr<service::ProviderHost> StartOn(
    const Options& options, std::shared_ptr<const service::RecordedHost> recorded) {
    service::HostOptions host = HostOptionsOf(options);
    host.recorded = std::move(recorded);
    return Start(host);
}

void RunOnProvider(const Options& options,
                   const std::function<void(const service::ProviderHost&)>& command) {
    if (!RunOnEach({{{}, options}}, command)) {
        throw IncompleteAnswer();
    }
}

void PrintDocument(const service::ProviderHost& host, nlohmann::ordered_json content) {
    nlohmann::ordered_json unread = nlohmann::ordered_json::array();
    for (const service::SourceQuery& query : UnreadSources(host.Journal().Queries())) {
        unread.push_back({{"namespace", query.nameSpace},
                          {"class", view::OrNull(query.className)},
                          {"status", EndText(query)},
                          {"loss", LossWithout(query.nameSpace, query.className)}});
    }
    content["unread"] = std::move(unread);
    Print(DocumentText(content));
}

service::ObjectList Take(service::Answer answer) {
    if (!Succeeded(answer.status)) {
        throw CommandError(answer.message);
    }
    return std::move(answer.objects);
}

void PrintAnswer(const service::ProviderHost& host, service::Answer answer, Format format) {
    const service::ObjectList objects = Take(std::move(answer));
    WarnOfDoubles(objects);
    const bool blind = objects.empty() && !UnreadSources(host.Journal().Queries()).empty();
    if (format == Format::json) {
        return PrintDocument(host, {{"objects", ObjectsAsJson(objects)}});
    }
    if (format == Format::mof) {
        return Print(ObjectsAsMof(objects));
    }
    PrintFitted({{blind ? "(not readable)\n" : ObjectsAsText(objects)}});
}

}  // namespace qv::tool
