#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/session/ObjectArgument.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"

namespace qv::tool {

void AddAssociators(CLI::App& program) {
    struct Arguments {
        Options options;
        ObjectArgument object;
        service::AssociatorsQuery query;
    };
    const auto arguments = std::make_shared<Arguments>();
    service::AssociatorsQuery& query = arguments->query;
    CLI::App* command =
        program.add_subcommand("associators", "the objects that associations join to an object");
    AddObjectArgument(*command, arguments->object);
    command->add_option("--assoc", query.assocClass, "through associations of this class only")
        ->type_name("CLASS");
    command->add_option("--role", query.role, "the reference that names the object")
        ->type_name("ROLE");
    command->add_option("--result", query.resultClass, "objects of this class only")
        ->type_name("CLASS");
    command->add_option("--result-role", query.resultRole, "the reference that names the results")
        ->type_name("ROLE");
    AddOptions(*command, arguments->options);
    command->footer("Example: qvsata associators --disk 0 --result QV_SATAStorageExtent --live");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, Arguments& given) {
        const service::Namespace& nameSpace = host.Published();
        RequireClass(nameSpace, given.query.assocClass);
        RequireClass(nameSpace, given.query.resultClass);
        given.query.path = ExistingObject(host, given.object);
        PrintAnswer(host, nameSpace.Query(given.query), given.options.format);
    });
}

}  // namespace qv::tool
