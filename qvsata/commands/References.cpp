#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/session/ObjectArgument.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"

namespace qv::tool {

void AddReferences(CLI::App& program) {
    struct Arguments {
        Options options;
        ObjectArgument object;
        service::ReferencesQuery query;
    };
    const auto arguments = std::make_shared<Arguments>();
    service::ReferencesQuery& query = arguments->query;
    CLI::App* command =
        program.add_subcommand("references", "the associations that name an object");
    AddObjectArgument(*command, arguments->object);
    command->add_option("--assoc", query.resultClass, "associations of this class only")
        ->type_name("CLASS");
    command->add_option("--role", query.role, "the reference that names the object")
        ->type_name("ROLE");
    AddOptions(*command, arguments->options);
    command->footer("Example: qvsata references --disk 0 --live");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, Arguments& given) {
        const service::Namespace& nameSpace = host.Published();
        RequireClass(nameSpace, given.query.resultClass);
        given.query.path = ExistingObject(host, given.object);
        PrintAnswer(host, nameSpace.Query(given.query), given.options.format);
    });
}

}  // namespace qv::tool
