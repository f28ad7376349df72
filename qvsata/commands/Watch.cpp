#include <chrono>
#include <memory>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/WatchRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/Session.h"

namespace qv::tool {
void AddWatch(CLI::App& program) {
    struct Arguments {
        Options options;
        unsigned count = 0;
        unsigned seconds = 0;
        bool realTime = false;
        AnswerFormat format = AnswerFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "watch", "announces disks that appear, change status or disappear; stops at Ctrl+C");
    arguments->options.isEndless = true;
    AddSourceOptions(*command, arguments->options);
    AddThen(*command, arguments->options);
    CheckWhole(command->add_option("--count", arguments->count, "ends after so many events"), 1,
               "N");
    CheckWhole(command->add_option("--for", arguments->seconds, "ends after so many seconds"), 1,
               "SECONDS");
    command->add_flag("--real-time", arguments->realTime,
                      "a replay waits as long as the provider does, and goes on after its end");
    AddAnswerFormat(*command, arguments->format);
    command->footer(
        "The provider polls the disks every 30 seconds. A replay polls each recording once.\n"
        "Example: qvsata watch --host hosts/drill/0-healthy.json --then "
        "hosts/drill/1-degraded.json");
    OnProvider(*command, arguments, [](const service::ProviderHost& host, const Arguments& given) {
        WatchLimits limits;
        if (given.count != 0) {
            limits.events = given.count;
        }
        if (given.seconds != 0) {
            limits.time = std::chrono::seconds(given.seconds);
        }
        limits.realTime = given.realTime;
        RunWatch(host, limits, given.format);
    });
}

}  // namespace qv::tool
