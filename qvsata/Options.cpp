#include "qvsata/Options.h"

#include <functional>
#include <map>

namespace qv::tool {
namespace {

/// Sets a format by its name.
std::function<void(const std::string&)> FormatReader(Format& format) {
    return [&format](const std::string& name) {
        static const std::map<std::string, Format, std::less<>> formats{
            {"text", Format::text}, {"json", Format::json}, {"mof", Format::mof}};
        const auto found = formats.find(name);
        if (found == formats.end()) {
            throw CLI::ValidationError("--format", "'" + name + "' is not text, json or mof");
        }
        format = found->second;
    };
}

}  // namespace

void AddOptions(CLI::App& command, Options& options) {
    auto* host = command.add_option("--host", options.host, "a recorded host (JSON file)");
    host->type_name("FILE");
    command.add_flag("--live", options.live, "this machine's own management service")
        ->excludes(host);
    command.parse_complete_callback([&options] {
        if (options.host.empty() && !options.live) {
            throw CLI::ValidationError(
                "give --host FILE for a recorded host or --live for this machine");
        }
    });
    command
        .add_option_function<std::string>("--format", FormatReader(options.format),
                                          "text (default), json or mof")
        ->type_name("FORMAT");

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
