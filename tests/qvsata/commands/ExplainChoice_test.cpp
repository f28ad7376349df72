// Which disk an argument of `explain` names.
#include <gmock/gmock.h>

#include <string>

#include "tests/qvsata/commands/RunHere.h"

namespace qv::test {
namespace {

using testing::HasSubstr;

struct Choice {
    const char* argument;
    const char* disk;  ///< as the first line names it
};

class ExplainChoice : public testing::TestWithParam<Choice> {};

TEST_P(ExplainChoice, IsTheDiskOfThatName) {
    const Ending explain = RunOn("hosts/ahci-desktop.json", {"explain", GetParam().argument});
    EXPECT_EQ(explain.exitCode, 0) << explain.errors;
    EXPECT_THAT(explain.output, HasSubstr(std::string("\n  ") + GetParam().disk + ' '));
}

INSTANTIATE_TEST_SUITE_P(Arguments, ExplainChoice,
                         testing::Values(Choice{"1", "#1"}, Choice{"#1", "#1"},
                                         Choice{R"(\\.\PHYSICALDRIVE1)", "#1"},
                                         Choice{R"(\\.\physicaldrive2)", "#2"},
                                         Choice{"41a60t1187", "#2"}, Choice{"1187", "#2"},
                                         Choice{"n240s", "#0"}));

struct Refusal {
    const char* argument;
    const char* error;
};

class ExplainRefusal : public testing::TestWithParam<Refusal> {};

TEST_P(ExplainRefusal, IsSaidWithWhatThereIs) {
    const Ending explain = RunOn("hosts/ahci-desktop.json", {"explain", GetParam().argument});
    EXPECT_EQ(explain.exitCode, 1);
    EXPECT_EQ(explain.output, "");
    EXPECT_THAT(explain.errors, HasSubstr(GetParam().error));
}

INSTANTIATE_TEST_SUITE_P(Arguments, ExplainRefusal,
                         // 99 is part of the serial number of disk #1.
                         testing::Values(Refusal{"99", "'99' fits no disk"},
                                         Refusal{"#7", "'#7' fits no disk"},
                                         Refusal{"halden", "'halden' fits several disks"}));

TEST(ExplainChoiceOfASerialNumber, FitsTheDecodedTextToo) {
    const Ending explain = RunOn("hosts/every-driver-family.json", {"explain", "ST8J016LL"});
    EXPECT_EQ(explain.exitCode, 0) << explain.errors;
}

}  // namespace
}  // namespace qv::test
