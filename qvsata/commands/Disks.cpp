#include <algorithm>
#include <iterator>
#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/session/MachineAnswer.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/system/Console.h"
#include "qvsata/view/DiskTable.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/OsDiskJson.h"

namespace qv::tool {
namespace {

nlohmann::ordered_json AsJson(const view::OsDisks& all) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    std::ranges::transform(all.disks, std::back_inserter(array), view::OsDiskAsJson);
    return {{"disks", array}, {"failingOthers", all.failingOthers}};
}

view::StyledText AsText(const view::OsDisks& all) {
    if (!all.disks.empty()) {
        view::StyledText text = view::DisksAsText(all.disks, ColumnsOf(Stream::output));
        if (!all.predictionsAreRead) {
            text.push_back({"failure predictions not readable\n", view::Style::caution});
        }
        return text;
    }
    return {{all.disksAreRead ? "no disks\n" : "disks not readable\n"}};
}

}  // namespace

void AddDisks(CLI::App& program) {
    struct Arguments {
        Options options;
        AnswerFormat format = AnswerFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "disks", "all disks of the operating system, published or not, and why not");
    AddFleetOptions(*command, arguments->options);
    AddAnswerFormat(*command, arguments->format);
    command->footer(
        "Examples: qvsata disks --host hosts/mixed-buses-failing.json\n"
        "          qvsata disks --host hosts --host hosts/drill/0-healthy.json --format json");
    OnRecordings(
        *command, arguments,
        [](const service::ProviderHost& host, const Arguments& given, const MachineAnswer& answer) {
            const view::OsDisks all = ReadOsDisks(host);
            answer.Warn(view::KeyWarnings(all.disks) + view::PredictionWarnings(all));
            if (given.format == AnswerFormat::json) {
                answer.PrintJson(AsJson(all));
            } else {
                answer.PrintText(AsText(all));
            }
        });
}

}  // namespace qv::tool
