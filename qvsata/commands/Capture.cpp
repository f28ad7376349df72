#include <cstddef>
#include <memory>
#include <optional>

#include "qvsata/capture/CapturedClasses.h"
#include "qvsata/capture/Record.h"
#include "qvsata/capture/Redacted.h"
#include "qvsata/capture/ReplaceFile.h"
#include "qvsata/capture/Shape.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/output/Output.h"
#include "qvsata/recorded/HostText.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/Session.h"
#include "qvsata/view/text/Characters.h"

namespace qv::tool {
namespace {

struct CaptureArguments {
    Options options;
    std::string file;
    bool isRedacted = false;
    std::string key;  ///< empty: another one each time
};

std::string Counted(std::size_t count, const std::string& one, const std::string& several) {
    return std::to_string(count) + ' ' + (count == 1 ? one : several);
}

/// Returns a line for each class, and the sum.
std::string Summary(const service::RecordedHost& host, const std::string& file) {
    std::string lines;
    std::size_t rows = 0;
    std::size_t failing = 0;
    for (const capture::CapturedClass& source : capture::CapturedClasses()) {
        lines.append(source.nameSpace).append(" ").append(source.name) += ": ";
        const service::RecordedNamespace* const nameSpace = host.FindNamespace(source.nameSpace);
        const service::RecordedClass* const recorded =
            nameSpace == nullptr ? nullptr : nameSpace->Find(source.name);
        if (recorded == nullptr || recorded->Failure()) {
            ++failing;
            lines += service::StatusName(recorded == nullptr ? service::status::invalidNamespace
                                                             : *recorded->Failure());
        } else {
            rows += recorded->Rows().size();
            lines += Counted(recorded->Rows().size(), "row", "rows");
        }
        lines += '\n';
    }
    return lines + view::Printable(file) + ": " + Counted(rows, "row", "rows") + " of " +
           Counted(capture::CapturedClasses().size() - failing, "class", "classes") +
           (failing == 0 ? "" : ", " + std::to_string(failing) + " not readable") + '\n';
}

/// Throws CommandError unless the provider publishes the same of a recording before and after its
/// redaction, but for the replaced texts.
void CheckShape(const Options& options, const capture::RedactedHost& redacted) {
    const bool isComplete = redacted.redaction.IsComplete();
    const auto shapeOf = [&](const service::RecordedHost& recorded, const auto& map) {
        const auto host = StartOn(options, std::make_shared<service::RecordedHost>(recorded));
        return capture::ShapeOf(host->Published(), map);
    };
    const auto before = shapeOf(redacted.before, [&](const std::string& text) {
        return isComplete ? redacted.redaction.TextOf(text) : std::string();
    });
    const auto after = shapeOf(redacted.after, [isComplete](const std::string& text) {
        return isComplete ? text : std::string();
    });
    if (before != after) {
        throw CommandError("the redacted recording publishes something else; nothing is written");
    }
}

void RunCapture(const CaptureArguments& given) {
    std::optional<service::RecordedHost> recorded;
    const bool isComplete =
        MachineRun(given.options).On({{}, given.options}, [&](const service::ProviderHost& host) {
            recorded = capture::Record(host.Machine(), host.Computer());
        });
    if (!recorded) {
        throw CommandEnd(incomplete);
    }
    std::string text = service::HostAsText(*recorded);
    if (given.isRedacted) {
        capture::RedactedHost redacted =
            capture::Redact(*recorded, given.key.empty() ? capture::RedactionKey::Random()
                                                         : capture::RedactionKey(given.key));
        CheckShape(given.options, redacted);
        text = std::move(redacted.text);
        recorded = std::move(redacted.after);
    }
    capture::ReplaceFile(FromUtf8(given.file), text);
    PrintFitted({{Summary(*recorded, given.file)}});
    if (!isComplete) {
        throw CommandEnd(incomplete);
    }
}

}  // namespace

void AddCapture(CLI::App& program) {
    const auto arguments = std::make_shared<CaptureArguments>();
    CLI::App* command = program.add_subcommand(
        "capture", "records the machine's management service in a file for --host");
    AddSourceOptions(*command, arguments->options);
    command->add_option("-o,--output", arguments->file, "the recording; replaced if it exists")
        ->type_name("FILE")
        ->required();
    CLI::Option* const redact = command->add_flag("--redact", arguments->isRedacted,
                                                  "replaces serial numbers, names and addresses");
    command
        ->add_option("--redact-key", arguments->key,
                     "a secret: recordings redacted with the same one match each other; without "
                     "it a random one is used")
        ->type_name("TEXT")
        ->needs(redact)
        ->check([](const std::string& text) {
            return std::string(text.empty() ? "the key is empty" : "");
        });
    command->parse_complete_callback([arguments] {
        Options& options = arguments->options;
        options.live = options.host.empty();
        // One query for each class; one class that never answers leaves time for the others.
        options.queriesInTime = static_cast<unsigned>(capture::CapturedClasses().size());
    });
    command->footer(
        "Without --host it records this machine. A class that cannot be read is recorded as "
        "failing.\n"
        "Example: qvsata capture --live --redact -o machine.json");
    command->callback([arguments] { RunCapture(*arguments); });
}

}  // namespace qv::tool
