// Errors that quote texts of any length, through the commands.
#include <gmock/gmock.h>

#include <fstream>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/qvsata/wql/RepeatedText.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

TEST(LongErrors, AboutARecordingAreCutInTheMiddle) {
    const TemporaryFile file;
    std::ofstream(file.Path()) << json{
        {"computer", json::object()},
        {"namespaces", {{"n", {{std::string(300'000, 'C'), {{"fails", 1}}}}}}}};
    const Ending run = RunHere({"disks", "--host", file.Path().string()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, AllOf(SizeIs(testing::Lt(2'001)),
                                  StartsWith("qvsata: " + file.Path().string() + ": namespaces.n."),
                                  HasSubstr("CCC ... CCC"),
                                  EndsWith(".fails: expected true or the name of a status like "
                                           "\"WBEM_E_ACCESS_DENIED\", or its number\n")));
}

TEST(LongErrors, AboutAMofFileAreCutInTheMiddle) {
    const TemporaryFile file;
    std::ofstream(file.Path()) << "class A : " << std::string(400'000, 'B') << " {};";
    const Ending run =
        RunOn("hosts/ahci-desktop.json", {"disks", "--installed", file.Path().string()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, AllOf(SizeIs(testing::Lt(2'001)), StartsWith("qvsata: "),
                                  HasSubstr("BBB ... BBB"), EndsWith("\n")));
}

class LongErrorsText : public testing::TestWithParam<const char*> {};

TEST_P(LongErrorsText, IsCutBetweenCharacters) {
    const std::string before = GetParam();
    const Ending run =
        RunOn("hosts/ahci-desktop.json", {"enumerate", before + RepeatedText(10'000, "円")});
    EXPECT_THAT(run.errors,
                AllOf(SizeIs(testing::Lt(2'001)), HasSubstr("円 ... 円"), EndsWith("円'\n")));
}

INSTANTIATE_TEST_SUITE_P(Offsets, LongErrorsText, testing::Values("", "a", "ab"));

// `get` takes paths of up to 999 characters.
TEST(LongErrors, OfAThousandCharactersStayWhole) {
    const std::string name(1'000, 'x');
    EXPECT_THAT(RunOn("hosts/ahci-desktop.json", {"enumerate", name}).errors, HasSubstr(name));
}

}  // namespace
}  // namespace qv::test
