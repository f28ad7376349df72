#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Options.h"
#include "qvsata/commands/Session.h"
#include "qvsata/output/Output.h"

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
    command->footer("Example: qvsata query \"SELECT Name FROM CIM_DiskDrive\" --live");
    command->callback([arguments] {
        const auto session = StartSession(arguments->options);
        Print(FormatObjects(Take(session->Published().Query(arguments->wql)),
                            arguments->options.format));
    });
}

}  // namespace qv::tool
