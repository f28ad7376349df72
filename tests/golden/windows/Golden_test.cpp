// The library publishes for each recorded host what its golden file contains.
#include <gmock/gmock.h>

#include <map>

#include "tests/golden/GoldenFiles.h"
#include "tests/golden/windows/WholeHost.h"

namespace qv::test {
namespace {

class GoldenTest : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(GoldenTest, AreThoseOfTheGoldenFile) {
    const WholeHost& host = WholeHost::From(GetParam());
    const std::string name = GetParam().stem().string();
    const std::string published = GoldenText(host.classes, host.prefix);
    UpdateGolden(name, published);
    EXPECT_EQ(FirstDifference(published, ReadGolden(name)), "");
}

// An instance may refuse an empty text only; any other refusal means a wrong type in the class.
TEST_P(GoldenTest, LoseNoValueThatThereIs) {
    EXPECT_THAT(WholeHost::From(GetParam()).refused,
                testing::Each(testing::Field(&RefusedPut::value, service::CimValue(""))));
}

INSTANTIATE_TEST_SUITE_P(EveryHost, GoldenTest, testing::ValuesIn(ShippedHosts()), HostName);

// Returns the refused puts of each shipped host and how often each was made.
std::string RefusedPuts() {
    std::string text;
    for (const std::filesystem::path& file : ShippedHosts()) {
        std::map<std::string, int> counts;
        for (const RefusedPut& refused : WholeHost::From(file).refused) {
            ++counts[refused.property + ": " + VariantTypeName(refused.variantType) + ' ' +
                     ValueText(refused.value)];
        }
        text += "== " + file.stem().string() + "\n\n";
        for (const auto& [put, count] : counts) {
            text += put + ", " + std::to_string(count) + (count == 1 ? " time\n" : " times\n");
        }
        text += counts.empty() ? "" : "\n";
    }
    return text;
}

TEST(Golden, RefusedPutsAreThoseOfTheGoldenFile) {
    const std::string text = RefusedPuts();
    UpdateGolden("refused-puts", text);
    EXPECT_EQ(FirstDifference(text, ReadGolden("refused-puts")), "");
}

}  // namespace
}  // namespace qv::test
