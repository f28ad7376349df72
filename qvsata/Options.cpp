#include "qvsata/Options.h"

#include <map>

namespace qv::tool {

void AddOptions(CLI::App& command, Options& options) {
    auto* source = command.add_option_group("Source", "where the source rows come from");
    source->add_option("--host", options.host, "a recorded host (JSON file)")->type_name("FILE");
    source->add_flag("--live", options.live, "this machine's own management service");
    source->require_option(1);

    const std::map<std::string, Format> formats{
        {"text", Format::text}, {"json", Format::json}, {"mof", Format::mof}};
    command.add_option("--format", options.format, "text (default), json or mof")
        ->type_name("FORMAT")
        ->transform(CLI::Transformer(formats).description(""))
        ->check(CLI::IsMember({Format::text, Format::json, Format::mof}).description(""));

    auto* library =
        command.add_option("--dll", options.library, "the provider (default: beside this program)")
            ->type_name("PATH");
    command.add_flag("--registered", options.registered, "the provider registered on this machine")
        ->excludes(library);
    command
        .add_option("--mof", options.mofFolder,
                    "folder of the class definitions (default: beside this program)")
        ->type_name("DIR");
}

}  // namespace qv::tool
