#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Options.h"
#include "qvsata/commands/Session.h"

namespace qv::tool {

void AddGet(CLI::App& program) {
    struct Arguments {
        Options options;
        std::string path;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        program.add_subcommand("get", "one instance by its path, or a class by its name");
    command->add_option("PATH", arguments->path, "an object path, its keys in any order")
        ->required();
    AddOptions(*command, arguments->options);
    command->footer(
        "Example: qvsata get 'QV_WinComputerSystem.CreationClassName=\"QV_WinComputerSystem\","
        "Name=\"desk01.example.org\"' --live");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        PrintAnswer(host, host.Published().GetInAnyOrder(given.path), given.options.format);
    });
}

}  // namespace qv::tool
