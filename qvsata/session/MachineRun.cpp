#include "qvsata/session/MachineRun.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <utility>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/mof/ShippedMof.h"
#include "qvsata/output/Output.h"
#include "qvsata/recorded/HostFile.h"
#include "qvsata/service/StartProvider.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/InstanceLimit.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/system/Process.h"
#include "qvsata/view/text/Characters.h"

namespace qv::tool {
namespace {

using std::filesystem::path;

std::shared_ptr<const service::RecordedHost> ReadHost(const std::string& file,
                                                      const Options& options) {
    return std::make_shared<service::RecordedHost>(
        service::ReadHostFile(FromUtf8(file), options.MostBytes()));
}

std::vector<std::shared_ptr<const service::RecordedHost>> ReadLaterHosts(
    const Options& options, const service::RecordedHost& first) {
    std::vector<std::shared_ptr<const service::RecordedHost>> hosts;
    for (const std::string& file : options.laterHosts) {
        hosts.push_back(ReadHost(file, options));
        if (hosts.back()->Computer() != first.Computer()) {
            throw CommandError(file + ": not a recording of the computer of " + options.host);
        }
    }
    return hosts;
}

/// Returns the number of rows of the largest recorded class.
std::size_t LargestClass(const service::HostOptions& host) {
    std::size_t largest = 0;
    for (const auto& recording : service::RecordingsOf(host)) {
        for (const service::RecordedNamespace& nameSpace : recording->Namespaces()) {
            for (const service::RecordedClass& one : nameSpace.Classes()) {
                largest = std::max(largest, one.Rows().size());
            }
        }
    }
    return largest;
}

/// Associations join up to three lists of instances, each about as long as a recorded class. Few
/// rows need no counting.
void LimitInstances(service::HostOptions& host, std::size_t most) {
    const std::size_t rows = LargestClass(host);
    if (rows != 0 && most / rows / rows < rows) {
        host.guard = [most, recordings = service::RecordingsOf(host)](
                         std::shared_ptr<const service::InstanceSource> provider,
                         const service::Namespace& published) {
            return WithInstanceLimit(std::move(provider), published, recordings, most);
        };
    }
}

std::shared_ptr<const service::PublishedClasses> ReadClasses(const Options& options) {
    std::vector<path> files;
    std::ranges::transform(options.installedMof, std::back_inserter(files), FromUtf8);
    const path folder = options.mofFolder.empty() ? ProgramFolder() : FromUtf8(options.mofFolder);
    for (const std::string_view file : service::shippedClassFiles) {
        files.push_back(folder / file);
        std::error_code error;
        if (std::filesystem::status(files.back(), error).type() ==
            std::filesystem::file_type::not_found) {
            throw CommandError(service::Utf8OfPath(files.back()) +
                               ": not found; --mof names the folder of the class definitions");
        }
    }
    return service::ReadPublishedClasses(files, options.MostBytes());
}

/// Returns what the options say of the provider. The machine's facts and the classes are missing.
service::HostOptions HostOptionsOf(const Options& options) {
    service::HostOptions host;
    if (options.timeout != 0) {
        host.queryTimeout = std::chrono::milliseconds(std::chrono::seconds(options.timeout)) /
                            options.queriesInTime;
    }
    host.library = FromUtf8(options.library);
    host.programFolder = ProgramFolder();
    host.registered = options.registered;
    host.logFolder = FromUtf8(options.logFolder);
    return host;
}

void RefuseUnlessPossible(const service::HostOptions& host) {
    if (const std::string reason = service::WhyNotStarted(host); !reason.empty()) {
        throw CommandError(reason);
    }
}

std::unique_ptr<service::ProviderHost> StartOrExplain(const service::HostOptions& host) {
    try {
        return service::StartProvider(host);
    } catch (const RequestError& error) {
        throw CommandError("starting the provider: " + service::StatusText(error.status()));
    }
}

}  // namespace

MachineRun::MachineRun(const Options& options)
    : report_(options.report == nullptr ? ReportOnErrors : options.report) {
    if (options.timeout != 0 && !options.isEndless) {
        deadline_.emplace(std::chrono::seconds(options.timeout),
                          [this, seconds = options.timeout] { End(seconds); });
    }
}

bool MachineRun::On(const Machine& machine,
                    const std::function<void(const service::ProviderHost&)>& command) {
    const auto journal = std::make_shared<service::SourceJournal>();
    const std::string prefix = machine.name.empty() ? "" : view::Printable(machine.name) + ": ";
    {
        const std::scoped_lock lock(mutex_);
        prefix_ = prefix;
        journal_ = journal;
    }
    const auto host = Start(machine.options);
    const auto unread = [&] { return UnreadLines(journal->Queries(), prefix); };
    try {
        command(*host);
    } catch (const CommandError& error) {
        if (unread().empty()) {
            throw;
        }
        WriteErrorLine((machine.name.empty() ? "" : machine.name + ": ") + error.what());
    }
    if (machine.options.report == nullptr) {
        WriteErrorFitted(unread());
    }
    return unread().empty();
}

std::unique_ptr<service::ProviderHost> MachineRun::Start(const Options& options) {
    service::HostOptions host = HostOptionsOf(options);
    host.journal = journal_;
    if (!options.live) {
        host.recorded = ReadHost(options.host, options);
        host.laterRecordings = ReadLaterHosts(options, *host.recorded);
        LimitInstances(host, options.MostRows());
    }
    RefuseUnlessPossible(host);
    host.classes = ReadClasses(options);
    return StartOrExplain(host);
}

std::unique_ptr<service::ProviderHost> StartOn(
    const Options& options, std::shared_ptr<const service::RecordedHost> recorded) {
    service::HostOptions host = HostOptionsOf(options);
    host.recorded = std::move(recorded);
    LimitInstances(host, options.MostRows());
    host.classes = ReadClasses(options);
    return StartOrExplain(host);
}

void MachineRun::End(unsigned seconds) {
    const std::scoped_lock lock(mutex_);
    std::string unread = journal_ ? UnreadLines(journal_->Queries(), prefix_) : "";
    const int exitCode = report_(TimeoutFailure(std::move(unread), seconds));
    // Threads that wait for a source cannot be ended in any other way.
    std::_Exit(exitCode);
}

void WriteErrorLine(const std::string& message) {
    WriteErrorFitted("qvsata: " + view::Printable(message) + '\n');
}

bool Succeeds(const std::string& machine, const std::function<void()>& body) {
    try {
        body();
        return true;
    } catch (const service::HostFileError& error) {
        WriteErrorLine(error.what());
    } catch (const CommandError& error) {
        WriteErrorLine(machine + ": " + error.what());
    }
    return false;
}

int WorseOf(int one, int other) {
    constexpr std::array fromTheWorst{failed, incomplete, different};
    const auto* const found = std::ranges::find_if(
        fromTheWorst, [&](int exitCode) { return exitCode == one || exitCode == other; });
    return found == fromTheWorst.end() ? 0 : *found;
}

}  // namespace qv::tool
