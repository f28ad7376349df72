#include <charconv>
#include <chrono>
#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Options.h"
#include "qvsata/commands/Session.h"
#include "qvsata/commands/WatchRun.h"

namespace qv::tool {
namespace {

/// Accepts a whole number of at least 1.
CLI::Validator Counted() {
    return {[](const std::string& text) -> std::string {
                constexpr unsigned most = 1000000000;
                unsigned number = 0;
                const char* end = text.data() + text.size();
                const auto [rest, error] = std::from_chars(text.data(), end, number);
                return error == std::errc() && rest == end && number >= 1 && number <= most
                           ? ""
                           : "'" + text + "' is not a whole number from 1 to " +
                                 std::to_string(most);
            },
            ""};
}

void CheckLimit(CLI::Option* option, const char* unit) {
    option->check(Counted())->type_name(unit);
}

}  // namespace

void AddWatch(CLI::App& program) {
    struct Arguments {
        Options options;
        unsigned count = 0;
        unsigned seconds = 0;
        EventFormat format = EventFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "watch", "announces disks that appear, change status or disappear; stops at Ctrl+C");
    AddSourceOptions(*command, arguments->options);
    command
        ->add_option("--then", arguments->options.laterHosts,
                     "what --host becomes when it was looked at; can be given several times")
        ->type_name("FILE")
        ->needs(command->get_option("--host"))
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    CheckLimit(command->add_option("--count", arguments->count, "ends after so many events"), "N");
    CheckLimit(command->add_option("--for", arguments->seconds, "ends after so many seconds"),
               "SECONDS");
    AddFormatOption<EventFormat>(
        *command, {{"text", EventFormat::text}, {"json", EventFormat::json}}, arguments->format);
    command->footer(
        "The provider looks at the disks every 30 seconds.\n"
        "Example: qvsata watch --host hosts/drill/0-healthy.json --then hosts/drill/1-degraded.json"
        " --count 1");
    command->callback([arguments] {
        const auto session = StartSession(arguments->options);
        WatchLimits limits;
        if (arguments->count != 0) {
            limits.events = arguments->count;
        }
        if (arguments->seconds != 0) {
            limits.time = std::chrono::seconds(arguments->seconds);
        }
        RunWatch(*session, limits, arguments->format);
    });
}

}  // namespace qv::tool
