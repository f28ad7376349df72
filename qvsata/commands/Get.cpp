#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/session/ObjectArgument.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"

namespace qv::tool {

void AddGet(CLI::App& program) {
    struct Arguments {
        Options options;
        ObjectArgument object;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        program.add_subcommand("get", "one instance by its path, or a class by its name");
    AddObjectArgument(*command, arguments->object);
    AddOptions(*command, arguments->options);
    command->footer(
        "Example: qvsata get --disk 0 --live\n"
        "         qvsata get \"QV_WinComputerSystem.CreationClassName='QV_WinComputerSystem',"
        "Name='study-desk.example.org'\" --host hosts/ahci-desktop.json");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        PrintAnswer(host, NamedObject(host, given.object), given.options.format);
    });
}

}  // namespace qv::tool
