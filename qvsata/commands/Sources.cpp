#include <algorithm>
#include <memory>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/session/MachineAnswer.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/session/SourceUses.h"
#include "qvsata/system/Console.h"
#include "qvsata/view/text/TextTable.h"

namespace qv::tool {
namespace {

using view::Style;

view::StyledText AsText(const std::vector<SourceUse>& uses) {
    constexpr std::size_t inTitle = 2;
    view::TextTable table{
        {{{"Namespace"}}, {{"Class"}}, {{"Rows"}, true}, {{"ms"}, true}, {{"Status"}}},
        {},
        inTitle};
    std::string losses;
    for (const SourceUse& use : uses) {
        const bool isRead = use.IsRead();
        table.rows.push_back({{{std::string(use.source.nameSpace)}},
                              {{std::string(use.source.name)}},
                              {{RowsText(use)}, true},
                              {{MillisecondsText(use)}, true},
                              {{StatusText(use), isRead ? Style::plain : Style::caution}}});
        if (use.queries != 0 && !isRead) {
            losses += "without " + std::string(use.source.name) + ": " +
                      std::string(use.source.loss) + '\n';
        }
    }
    view::StyledText text = view::TableAsText(table, ColumnsOf(Stream::output));
    text.push_back({losses.empty() ? "" : '\n' + losses});
    return text;
}

nlohmann::ordered_json AsJson(const std::vector<SourceUse>& uses) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const SourceUse& use : uses) {
        // A class that was not asked has none of these.
        nlohmann::ordered_json rows;
        nlohmann::ordered_json status;
        nlohmann::ordered_json code;
        nlohmann::ordered_json meaning;
        if (use.queries != 0) {
            status = EndText(use.worst);
            code = static_cast<std::uint32_t>(use.worst.status);
            meaning = service::StatusMeaning(use.worst.status);
            if (use.IsRead()) {
                rows = use.rows;
            }
        }
        array.push_back({{"namespace", use.source.nameSpace},
                         {"class", use.source.name},
                         {"queries", use.queries},
                         {"rows", rows},
                         {"milliseconds", static_cast<double>(use.time.count()) / 1000.0},
                         {"status", status},
                         {"code", code},
                         {"meaning", meaning},
                         {"loss", use.source.loss}});
    }
    return {{"sources", array}};
}

}  // namespace

void AddSources(CLI::App& program) {
    struct Arguments {
        Options options;
        AnswerFormat format = AnswerFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "sources", "what the provider reads of the machine, and what is lost when it cannot");
    AddFleetOptions(*command, arguments->options);
    AddAnswerFormat(*command, arguments->format);
    command->footer(
        "Examples: qvsata sources --host hosts/ahci-desktop.json\n"
        "          qvsata sources --host hosts/drill");
    OnRecordings(
        *command, arguments,
        [](const service::ProviderHost& host, const Arguments& given, const MachineAnswer& answer) {
            const std::vector<SourceUse> uses = ReadSourceUses(host);
            if (given.format == AnswerFormat::json) {
                answer.PrintJson(AsJson(uses));
            } else {
                answer.PrintText(AsText(uses));
            }
        });
}

}  // namespace qv::tool
