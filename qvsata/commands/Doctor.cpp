#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Classes.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/doctor/Gather.h"
#include "qvsata/doctor/NamespaceFacts.h"
#include "qvsata/doctor/Report.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/service/StartProvider.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/system/Process.h"
#include "source/Namespaces.h"

namespace qv::tool {
namespace {

using doctor::Facts;
using doctor::Unknown;

constexpr std::string_view predictionClass = "MSStorageDriver_FailurePredictStatus";

/// Returns the bytes of the namespace's security descriptor.
std::string SecurityOf(const service::Services& nameSpace) {
    std::string bytes;
    for (const service::ObjectPtr& object : nameSpace.Get("__ThisNamespace=@").objects) {
        const auto property = object->Find("SECURITY_DESCRIPTOR");
        const auto* const numbers =
            property ? std::get_if<std::vector<std::int64_t>>(&property->value) : nullptr;
        for (const std::int64_t number : numbers ? *numbers : std::vector<std::int64_t>()) {
            bytes += static_cast<char>(number);
        }
    }
    return bytes;
}

/// Hosts the registered library on the machine; sets why it cannot be.
std::unique_ptr<service::ProviderHost> HostRegistered(
    const Facts& facts, std::shared_ptr<const service::PublishedClasses> classes,
    std::string& whyNot) {
    const auto* const library = std::get_if<doctor::LibraryFacts>(&facts.library);
    if (library == nullptr || !library->machine || !library->whyNotLoaded.empty()) {
        whyNot = "the library cannot be loaded";
        return nullptr;
    }
    service::HostOptions options;
    options.classes = std::move(classes);
    options.library = FromUtf8(library->file);
    options.logFolder.emplace();
    try {
        return service::StartProvider(options);
    } catch (const RequestError& error) {
        whyNot = "the library cannot be hosted: " + service::StatusText(error.status());
        return nullptr;
    }
}

/// Has the hosted library publish everything, and reads the class that only its monitor reads.
/// Returns the sources that could not be read.
std::vector<doctor::UnreadSource> PublishAll(const service::ProviderHost& host) {
    for (const PublishedClass& published : PublishedClasses()) {
        host.Published().Enumerate(published.name);
    }
    if (const service::Connection monitored = host.Machine()(wmiNamespace); monitored.services) {
        monitored.services->Query("SELECT * FROM " + std::string(predictionClass));
    }
    std::vector<doctor::UnreadSource> unread;
    for (const service::SourceQuery& query : UnreadSources(host.Journal().Queries())) {
        unread.push_back({SourceLine(query), query.status, query.className == predictionClass});
    }
    return unread;
}

/// Looks at everything that the management service knows.
void AskService(Facts& facts, const std::shared_ptr<const service::PublishedClasses>& classes) {
    std::string whyNotHosted;
    const auto host = HostRegistered(facts, classes, whyNotHosted);
    const service::Connection installed = doctor::ConnectInstalled(providerNamespace);
    if (installed.services) {
        doctor::ReadNamespace(*installed.services, *classes, facts);
        facts.namespaceRights = doctor::RightsOf(SecurityOf(*installed.services));
    } else {
        facts.connection = installed.status;
        const Unknown why{"root\\QVQ cannot be connected to"};
        facts.classGaps = why;
        facts.answers = why;
        facts.providers = why;
        facts.namespaceRights = why;
    }
    if (!host) {
        facts.unreadSources = Unknown{whyNotHosted};
        facts.answers = Unknown{whyNotHosted};
        return;
    }
    facts.unreadSources = PublishAll(*host);
    if (installed.services) {
        facts.answers = doctor::CompareAnswers(*installed.services, host->Published());
    }
}

void Examine(const std::string& mofFolder, AnswerFormat format) {
    std::optional<Facts> facts = doctor::ReadMachine();
    if (!facts) {
        throw CommandError("doctor needs Windows; this program replays recordings");
    }
    facts->toolVersion = QV_VERSION;
    AskService(*facts,
               doctor::ReadShipped(mofFolder.empty() ? ProgramFolder() : FromUtf8(mofFolder)));
    const std::vector<doctor::Link> links = doctor::JudgeLinks(*facts);
    if (format == AnswerFormat::json) {
        Print(DocumentText(doctor::LinksAsJson(links)));
    } else {
        PrintFitted(doctor::LinksAsText(links));
    }
    const doctor::State worst = doctor::WorstOf(links);
    if (worst != doctor::State::ok) {
        throw CommandEnd(worst == doctor::State::problem ? different : incomplete);
    }
}

}  // namespace

void AddDoctor(CLI::App& program) {
    struct Arguments {
        std::string mofFolder;
        AnswerFormat format = AnswerFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "doctor", "checks each link of the installed provider and names what mends it");
    command
        ->add_option("--mof", arguments->mofFolder,
                     "folder of the class definitions (default: beside this program)")
        ->type_name("DIR");
    AddAnswerFormat(*command, arguments->format);
    command->footer(
        "Exit code: 0 all is well, 3 something could not be checked, 4 something is wrong.\n"
        "Needs Windows; an administrator sees more.\n"
        "Example: qvsata doctor");
    command->callback([arguments] { Examine(arguments->mofFolder, arguments->format); });
}

}  // namespace qv::tool
