// What the builders make of each recorded host is what its golden file holds.
#include <gtest/gtest.h>

#include "tests/golden_native/GoldenFiles.h"
#include "tests/golden_native/RecordedProvider.h"

namespace qv::test {
namespace {

class GoldenRecords : public testing::TestWithParam<std::filesystem::path> {
protected:
    RecordedProvider provider_{service::ReadHostFile(GetParam())};
};

TEST_P(GoldenRecords, AreThoseOfTheGoldenFile) {
    std::vector<PublishedInstances> published;
    for (const PublishedClass& one : PublishedClasses()) {
        PublishedInstances& instances = published.emplace_back();
        instances.className = one.name;
        for (const InstanceRecord& record : provider_.All(one.name)) {
            instances.instances.push_back(provider_.Publish(record));
        }
    }
    EXPECT_EQ(FirstDifference(GoldenText(published, provider_.Prefix()),
                              ReadGolden(GetParam().stem().string())),
              "");
}

TEST_P(GoldenRecords, HaveThePathsThatTheirKeysMake) {
    for (const PublishedClass& one : PublishedClasses()) {
        for (const InstanceRecord& record : provider_.All(one.name)) {
            EXPECT_EQ(PathOf(provider_.Publish(record), provider_.Prefix()),
                      BuildObjectPath(record));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryHost, GoldenRecords, testing::ValuesIn(ShippedHosts()), HostName);

}  // namespace
}  // namespace qv::test
