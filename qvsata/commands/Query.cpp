#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"

namespace qv::tool {

void AddQuery(CLI::App& program) {
    struct Arguments {
        Options options;
        std::string wql;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "query", "the answer to a query: SELECT, ASSOCIATORS OF, REFERENCES OF");
    command->add_option("WQL", arguments->wql, "the query")->required();
    AddOptions(*command, arguments->options);
    command->footer(
        "Example: qvsata query \"SELECT Name FROM CIM_DiskDrive\" --host hosts/ahci-desktop.json");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        PrintAnswer(host, host.Published().Query(given.wql), given.options.format);
    });
}

}  // namespace qv::tool
