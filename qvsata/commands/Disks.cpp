#include <algorithm>
#include <iterator>
#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Options.h"
#include "qvsata/commands/OsDisks.h"
#include "qvsata/commands/Session.h"
#include "qvsata/commands/SourceReport.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/system/Console.h"
#include "qvsata/view/DiskTable.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/OsDiskJson.h"
#include "source/Namespaces.h"

namespace qv::tool {
namespace {

enum class DisksFormat { text, json };

nlohmann::ordered_json AsJson(const view::OsDisks& all) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    std::ranges::transform(all.disks, std::back_inserter(array), view::OsDiskAsJson);
    return {{"disks", array}, {"failingOthers", all.failingOthers}};
}

void PrintTable(const service::ProviderHost& host, const std::vector<view::OsDisk>& disks) {
    if (!disks.empty()) {
        return PrintFitted(view::DisksAsText(disks, ColumnsOf(Stream::output)));
    }
    const bool unread = IsUnread(host.Journal().Queries(), cimNamespace, "Win32_DiskDrive");
    Print(unread ? "disks not readable\n" : "no disks\n");
}

}  // namespace

void AddDisks(CLI::App& program) {
    struct Arguments {
        Options options;
        DisksFormat format = DisksFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "disks", "all disks of the operating system, published or not, and why not");
    AddSourceOptions(*command, arguments->options);
    AddFormatOption<DisksFormat>(
        *command, {{"text", DisksFormat::text}, {"json", DisksFormat::json}}, arguments->format);
    command->footer("Example: qvsata disks --host hosts/mixed-buses-failing.json");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        const view::OsDisks all = ReadOsDisks(host);
        WriteErrorFitted(view::KeyWarnings(all.disks) + view::PredictionWarnings(all));
        if (given.format == DisksFormat::json) {
            PrintDocument(host, AsJson(all));
        } else {
            PrintTable(host, all.disks);
        }
    });
}

}  // namespace qv::tool
