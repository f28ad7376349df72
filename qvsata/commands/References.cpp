#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/ExistingObject.h"
#include "qvsata/commands/Options.h"
#include "qvsata/commands/Session.h"
#include "qvsata/output/Output.h"

namespace qv::tool {

void AddReferences(CLI::App& program) {
    struct Arguments {
        Options options;
        std::string path;
        service::ReferencesQuery query;
    };
    const auto arguments = std::make_shared<Arguments>();
    service::ReferencesQuery& query = arguments->query;
    CLI::App* command =
        program.add_subcommand("references", "the associations that name an object");
    command->add_option("PATH", arguments->path, "an object path, its keys in any order")
        ->required();
    command->add_option("--assoc", query.resultClass, "associations of this class only")
        ->type_name("CLASS");
    command->add_option("--role", query.role, "the reference that names the object")
        ->type_name("ROLE");
    AddOptions(*command, arguments->options);
    command->footer(
        "Example: qvsata references 'QV_WinComputerSystem.CreationClassName="
        "\"QV_WinComputerSystem\",Name=\"desk01.example.org\"' --live");
    command->callback([arguments] {
        const auto session = StartSession(arguments->options);
        const service::Namespace& nameSpace = session->Published();
        service::ReferencesQuery& asked = arguments->query;
        RequireClass(nameSpace, asked.resultClass);
        asked.path = ExistingObject(nameSpace, arguments->path);
        Print(FormatObjects(Take(nameSpace.Query(asked)), arguments->options.format));
    });
}

}  // namespace qv::tool
