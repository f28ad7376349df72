// What the library publishes for each recorded host is what its golden file holds.
#include <map>

#include "tests/golden_native/GoldenFiles.h"
#include "tests/windows/golden/PublishingHost.h"

namespace qv::test {
namespace {

class GoldenInstances : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(GoldenInstances, AreThoseOfTheGoldenFile) {
    PublishingHost host(GetParam());
    const std::string name = GetParam().stem().string();
    const std::string published = GoldenText(host.PublishAll(), host.Prefix());
    UpdateGolden(name, published);
    EXPECT_EQ(FirstDifference(published, ReadGolden(name)), "");
}

// A class that refuses more than a text without anything in it has the wrong type.
TEST_P(GoldenInstances, LoseNoValueThatThereIs) {
    PublishingHost host(GetParam());
    host.PublishAll();
    for (const RefusedPut& refused : host.Refused()) {
        EXPECT_EQ(refused.value, service::CimValue("")) << refused.property;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryHost, GoldenInstances, testing::ValuesIn(ShippedHosts()), HostName);

TEST(RefusedPuts, AreThoseOfTheGoldenFile) {
    std::string text;
    for (const std::filesystem::path& file : ShippedHosts()) {
        PublishingHost host(file);
        host.PublishAll();
        std::map<std::string, int> counts;
        for (const RefusedPut& refused : host.Refused()) {
            ++counts[refused.property + ": " + VariantTypeName(refused.variantType) + ' ' +
                     ValueText(refused.value)];
        }
        text += "== " + file.stem().string() + "\n\n";
        for (const auto& [put, count] : counts) {
            text += put + ", " + std::to_string(count) + (count == 1 ? " time\n" : " times\n");
        }
        text += counts.empty() ? "" : "\n";
    }
    UpdateGolden("refused-puts", text);
    EXPECT_EQ(FirstDifference(text, ReadGolden("refused-puts")), "");
}

}  // namespace
}  // namespace qv::test
