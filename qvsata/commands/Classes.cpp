#include <algorithm>
#include <memory>
#include <optional>

#include "catalogue/Classes.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/output/OutputMof.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/system/Console.h"
#include "qvsata/view/text/TextTable.h"

namespace qv::tool {
namespace {

struct ClassLine {
    std::string name;
    std::string kind;
    /// Nothing if none was found and a source that the class rests on could not be read.
    std::optional<std::size_t> instances;
};

std::vector<ClassLine> CountInstances(const service::ProviderHost& host) {
    std::vector<ClassLine> lines;
    for (const PublishedClass& published : PublishedClasses()) {
        const std::size_t before = host.Journal().Size();
        const std::size_t count = Take(host.Published().Enumerate(published.name)).size();
        const bool blind = count == 0 && !UnreadSources(host.Journal().Queries(before)).empty();
        lines.push_back({std::string(published.name),
                         published.association != nullptr ? "association" : "instance",
                         blind ? std::nullopt : std::optional(count)});
    }
    return lines;
}

view::StyledText AsText(const std::vector<ClassLine>& lines) {
    using view::Style;
    view::TextTable table{{{{"Class"}}, {{"Kind"}}, {{"Instances"}, true}}, {}};
    for (const ClassLine& line : lines) {
        const view::Span count = line.instances ? view::Span{std::to_string(*line.instances)}
                                                : view::Span{"not readable", Style::caution};
        table.rows.push_back({{{line.name}}, {{line.kind}}, {count, true}});
    }
    return view::TableAsText(table, ColumnsOf(Stream::output));
}

nlohmann::ordered_json AsJson(const std::vector<ClassLine>& lines) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const ClassLine& line : lines) {
        nlohmann::ordered_json count;
        if (line.instances) {
            count = *line.instances;
        }
        array.push_back({{"class", line.name}, {"kind", line.kind}, {"instances", count}});
    }
    return {{"classes", array}};
}

std::string AsMof(const service::Namespace& nameSpace) {
    service::ObjectList definitions;
    for (const PublishedClass& published : PublishedClasses()) {
        std::ranges::move(Take(nameSpace.Get(published.name)), std::back_inserter(definitions));
    }
    return ObjectsAsMof(definitions);
}

}  // namespace

void AddClasses(CLI::App& program) {
    struct Arguments {
        Options options;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "classes", "the published classes and how many instances each has (mof: definitions)");
    AddOptions(*command, arguments->options);
    command->footer("Example: qvsata classes --host hosts/ahci-desktop.json");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        switch (given.options.format) {
            case Format::text:
                return Print(AsText(CountInstances(host)));
            case Format::json:
                return PrintDocument(host, AsJson(CountInstances(host)));
            case Format::mof:
                return Print(AsMof(host.Published()));
        }
    });
}

}  // namespace qv::tool
