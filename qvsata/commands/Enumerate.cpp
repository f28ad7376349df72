#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"

namespace qv::tool {

void AddEnumerate(CLI::App& program) {
    struct Arguments {
        Options options;
        std::string className;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        program.add_subcommand("enumerate", "the instances of a class and of its subclasses");
    command->add_option("CLASS", arguments->className, "a class of root\\QVQ")->required();
    AddOptions(*command, arguments->options);
    command->footer("Example: qvsata enumerate QV_SATADiskDrive --host hosts/ahci-desktop.json");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        PrintAnswer(host, host.Published().Enumerate(given.className), given.options.format);
    });
}

}  // namespace qv::tool
