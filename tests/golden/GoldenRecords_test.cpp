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
    std::vector<PublishedInstances> Published() const {
        std::vector<PublishedInstances> published;
        for (const PublishedClass& one : PublishedClasses()) {
            PublishedInstances& instances = published.emplace_back();
            instances.className = one.name;
            for (const InstanceRecord& record : provider_.All(one.name)) {
                instances.instances.push_back(AsPublished(record, prefix_));
            }
        }
        return published;
    }

    std::vector<std::string> PathsOfInstances() const {
        std::vector<std::string> paths;
        for (const PublishedInstances& one : Published()) {
            for (const PublishedInstance& instance : one.instances) {
                paths.push_back(PathOf(instance, prefix_));
            }
        }
        return paths;
    }

    std::vector<std::string> PathsOfRecords() const {
        std::vector<std::string> paths;
        for (const PublishedClass& one : PublishedClasses()) {
            for (const InstanceRecord& record : provider_.All(one.name)) {
                paths.push_back(BuildObjectPath(record));
            }
        }
        return paths;
    }

    const service::RecordedHost host_ = service::ReadHostFile(GetParam());
    const std::string prefix_ = NamespacePrefix(host_.Computer().server);
    RecordedProvider provider_{host_};
};

TEST_P(GoldenRecordsTest, AreThoseOfTheGoldenFile) {
    EXPECT_EQ(
        FirstDifference(GoldenText(Published(), prefix_), ReadGolden(GetParam().stem().string())),
        "");
}

TEST_P(GoldenRecordsTest, HaveThePathsThatTheirKeysMake) {
    EXPECT_EQ(PathsOfInstances(), PathsOfRecords());
}

INSTANTIATE_TEST_SUITE_P(EveryHost, GoldenRecordsTest, testing::ValuesIn(ShippedHosts()), HostName);

}  // namespace
}  // namespace qv::test
