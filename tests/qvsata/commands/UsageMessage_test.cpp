#include "tests/qvsata/commands/RunHere.h"

namespace qv::test {
namespace {

struct Typed {
    const char* name;
    std::vector<std::string> arguments;
    const char* message;
};

class UsageMessage : public testing::TestWithParam<Typed> {};

TEST_P(UsageMessage, NamesWhatIsWrongAndWhatMayBeMeant) {
    const Ending run = RunHere(GetParam().arguments);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, std::string("qvsata: ") + GetParam().message + " (see --help)\n");
}

const std::string recording = "h.json";

INSTANTIATE_TEST_SUITE_P(
    CommandLines, UsageMessage,
    testing::Values(
        Typed{"BeginOfACommand", {"topo"}, "unknown command 'topo'; did you mean 'topology'?"},
        Typed{"SwappedLetters", {"dikss"}, "unknown command 'dikss'; did you mean 'disks'?"},
        Typed{"WrongLetter", {"watsh"}, "unknown command 'watsh'; did you mean 'watch'?"},
        Typed{"NothingLikeIt", {"frobnicate"}, "unknown command 'frobnicate'"},
        Typed{"Option",
              {"disks", "--hots", recording},
              "unknown option '--hots'; did you mean '--host'?"},
        Typed{"OptionWithValue",
              {"disks", "--hots=" + recording},
              "unknown option '--hots'; did you mean '--host'?"},
        Typed{"OptionOfNoCommand",
              {"--versoin"},
              "unknown option '--versoin'; did you mean '--version'?"},
        Typed{"ArgumentTooMany",
              {"disks", "--host", recording, "extra"},
              "unexpected argument 'extra' of disks"},
        Typed{"RecordingWithoutAnOption",
              {"explain", "1", "--host", "a.json", "b.json"},
              "unexpected argument 'b.json' of explain; each recording takes its own --host"},
        Typed{"NoCommand", {}, "a command is required"},
        Typed{"OptionBeforeTheCommand",
              {"--host", recording},
              "a command is required before '--host'"},
        Typed{"OneDash",
              {"disks", "-host", recording},
              "unknown option '-host'; did you mean '--host'?"},
        Typed{"NumberThatIsNone",
              {"get", "--disk", "x", "--host", recording},
              "--disk: 'x' is not a whole number from 0 to 1000000000"},
        Typed{"TimeoutOfNothing",
              {"disks", "--host", recording, "--timeout", "0"},
              "--timeout: '0' is not a whole number from 1 to 1000000000"}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace qv::test
