// The builders publish what each recorded host's golden file contains.
#include <gtest/gtest.h>

#include "catalogue/Classes.h"
#include "tests/golden/GoldenFiles.h"
#include "tests/golden/PublishedRecord.h"
#include "tests/support/RecordedProvider.h"

namespace qv::test {
namespace {

class GoldenRecordsTest : public testing::TestWithParam<std::filesystem::path> {
protected:
    const service::RecordedHost host_ = service::ReadHostFile(GetParam());
    const std::string prefix_ = NamespacePrefix(host_.Computer().server);
    RecordedProvider provider_{host_};
};

TEST_P(GoldenRecordsTest, AreThoseOfTheGoldenFile) {
    std::vector<PublishedInstances> published;
    for (const PublishedClass& one : PublishedClasses()) {
        PublishedInstances& instances = published.emplace_back();
        instances.className = one.name;
        for (const InstanceRecord& record : provider_.All(one.name)) {
            instances.instances.push_back(AsPublished(record, prefix_));
        }
    }
    EXPECT_EQ(
        FirstDifference(GoldenText(published, prefix_), ReadGolden(GetParam().stem().string())),
        "");
}

TEST_P(GoldenRecordsTest, HaveThePathsThatTheirKeysMake) {
    for (const PublishedClass& one : PublishedClasses()) {
        for (const InstanceRecord& record : provider_.All(one.name)) {
            EXPECT_EQ(PathOf(AsPublished(record, prefix_), prefix_), BuildObjectPath(record));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryHost, GoldenRecordsTest, testing::ValuesIn(ShippedHosts()), HostName);

}  // namespace
}  // namespace qv::test
