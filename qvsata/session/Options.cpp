#include "qvsata/session/Options.h"

#include <algorithm>
#include <charconv>

namespace qv::tool {
namespace {

/// "text, json or mof"
std::string Alternatives(const std::vector<std::string>& names, const std::string& afterFirst) {
    std::string text = names.front() + afterFirst;
    for (std::size_t index = 1; index < names.size(); ++index) {
        text += (index + 1 == names.size() ? " or " : ", ") + names[index];
    }
    return text;
}

CLI::Validator Whole(unsigned least) {
    return {[least](const std::string& text) -> std::string {
                constexpr unsigned most = 1000000000;
                unsigned number = 0;
                const char* end = text.data() + text.size();
                const auto [rest, error] = std::from_chars(text.data(), end, number);
                return error == std::errc() && rest == end && number >= least && number <= most
                           ? ""
                           : "'" + text + "' is not a whole number from " + std::to_string(least) +
                                 " to " + std::to_string(most);
            },
            ""};
}

/// Adds what --host is an alternative to, and the options of the provider.
void AddSource(CLI::App& command, Options& options, CLI::Option* host) {
    command.add_flag("--live", options.live, "this machine's own management service")
        ->excludes(host);
    command.parse_complete_callback([&options] {
        if (options.host.empty() && options.hosts.empty() && !options.live) {
            throw CLI::ValidationError(
                "give --host FILE for a recorded host or --live for this machine");
        }
    });
    AddProviderOptions(command, options);
}

}  // namespace

void CheckWhole(CLI::Option* option, unsigned least, const char* unit) {
    option->check(Whole(least))->type_name(unit);
}

void AddNamedFormats(CLI::App& command, const std::vector<std::string>& names,
                     std::function<void(std::size_t)> choose) {
    const auto read = [names, choose = std::move(choose)](const std::string& name) {
        const auto found = std::ranges::find(names, name);
        if (found == names.end()) {
            throw CLI::ValidationError("--format",
                                       "'" + name + "' is not " + Alternatives(names, ""));
        }
        choose(static_cast<std::size_t>(found - names.begin()));
    };
    command.add_option_function<std::string>("--format", read, Alternatives(names, " (default)"))
        ->type_name("FORMAT");
}

void AddAnswerFormat(CLI::App& command, AnswerFormat& chosen) {
    AddFormatOption<AnswerFormat>(
        command, {{"text", AnswerFormat::text}, {"json", AnswerFormat::json}}, chosen);
}

void AddOptions(CLI::App& command, Options& options) {
    AddSourceOptions(command, options);
    AddFormatOption<Format>(command,
                            {{"text", Format::text}, {"json", Format::json}, {"mof", Format::mof}},
                            options.format);
}

void AddSourceOptions(CLI::App& command, Options& options) {
    AddSource(command, options,
              command.add_option("--host", options.host, "a recorded host (JSON file)")
                  ->type_name("FILE"));
}

void AddFleetOptions(CLI::App& command, Options& options) {
    AddSource(command, options,
              command
                  .add_option("--host", options.hosts,
                              "a recorded host (JSON file) or a folder of them; can be given "
                              "several times")
                  ->type_name("FILE")
                  ->expected(1)
                  ->allow_extra_args(false)
                  ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll));
}

void AddThen(CLI::App& command, Options& options) {
    command
        .add_option("--then", options.laterHosts,
                    "what --host becomes when it was looked at; can be given several times")
        ->type_name("FILE")
        ->needs(command.get_option("--host"))
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

void AddProviderOptions(CLI::App& command, Options& options) {
    CheckWhole(command.add_option(
                   "--limit", options.limit,
                   "refuses recordings and MOF files of more MiB, and classes with more "
                   "thousands of instances, linked partitions or disks named by their rows on a "
                   "recording (default: 100)"),
               1, "N");
    CheckWhole(command.add_option("--timeout", options.timeout,
                                  "ends the command after so many seconds; one query of --live "
                                  "may take half of them"),
               1, "SECONDS");

    auto* library =
        command.add_option("--dll", options.library, "the provider (default: beside this program)")
            ->type_name("PATH");
    command.add_flag("--registered", options.registered, "the provider registered on this machine")
        ->excludes(library);
    command
        .add_option("--log", options.logFolder,
                    "folder to which the provider writes its logs (default: it writes none)")
        ->type_name("DIR");
    command
        .add_option("--mof", options.mofFolder,
                    "folder of the class definitions (default: beside this program)")
        ->type_name("DIR");
    command
        .add_option("--installed", options.installedMof,
                    "MOF files of existing classes; checks whether the installation would succeed")
        ->type_name("FILE");
}

}  // namespace qv::tool
