#include <algorithm>
#include <memory>

#include "catalogue/Classes.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Options.h"
#include "qvsata/commands/Session.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/output/OutputText.h"

namespace qv::tool {
namespace {

struct ClassLine {
    std::string name;
    std::string kind;
    std::size_t instances = 0;
};

std::vector<ClassLine> CountInstances(const service::Namespace& nameSpace) {
    std::vector<ClassLine> lines;
    for (const PublishedClass& published : PublishedClasses()) {
        lines.push_back({std::string(published.name),
                         published.association != nullptr ? "association" : "instance",
                         Take(nameSpace.Enumerate(published.name)).size()});
    }
    return lines;
}

std::string AsText(const std::vector<ClassLine>& lines) {
    Table table{{"Class", "Kind", "Instances"}, {}};
    for (const ClassLine& line : lines) {
        table.rows.push_back({line.name, line.kind, std::to_string(line.instances)});
    }
    return TableAsText(table);
}

std::string AsJson(const std::vector<ClassLine>& lines) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const ClassLine& line : lines) {
        array.push_back({{"class", line.name}, {"kind", line.kind}, {"instances", line.instances}});
    }
    return DocumentText(array);
}

std::string AsMof(const service::Namespace& nameSpace) {
    service::ObjectList definitions;
    for (const PublishedClass& published : PublishedClasses()) {
        std::ranges::move(Take(nameSpace.Get(published.name)), std::back_inserter(definitions));
    }
    return FormatObjects(definitions, Format::mof);
}

}  // namespace

void AddClasses(CLI::App& program) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = program.add_subcommand(
        "classes", "the published classes and how many instances each has (mof: definitions)");
    AddOptions(*command, *options);
    command->footer("Example: qvsata classes --host hosts/ahci-desktop.json");
    command->callback([options] {
        const auto session = StartSession(*options);
        switch (options->format) {
            case Format::text:
                return Print(AsText(CountInstances(session->Published())));
            case Format::json:
                return Print(AsJson(CountInstances(session->Published())));
            case Format::mof:
                return Print(AsMof(session->Published()));
        }
    });
}

}  // namespace qv::tool
