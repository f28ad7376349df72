// PartitionLinks, compared with a plain search of every link and partition, on generated hosts.
#include <gtest/gtest.h>

#include <algorithm>

#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"
#include "tests/support/GeneratedKeys.h"
#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::vector<const platform::Row*> LinkedPartitions(const platform::Rows& links,
                                                   const platform::Rows& partitions,
                                                   const std::string& deviceId) {
    std::vector<const platform::Row*> matched;
    for (const auto& link : links) {
        if (!Contains(StripBackslashes(TextOrEmpty(*link, "Antecedent")),
                      StripBackslashes(deviceId))) {
            continue;
        }
        const std::string dependent = TextOrEmpty(*link, "Dependent");
        const auto first = std::ranges::find_if(partitions, [&dependent](const auto& partition) {
            return Contains(dependent, TextOrEmpty(*partition, "DeviceID"));
        });
        if (first != partitions.end()) {
            matched.push_back(first->get());
        }
    }
    return matched;
}

// Replaces one of the generator's letters by backslashes.
std::string WithBackslashes(std::string key) {
    std::ranges::replace(key, '&', '\\');
    return key;
}

TEST(PartitionLinksOracle, FindWhatThePlainWalkFinds) {
    std::size_t found = 0;
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        KeyGenerator generator(seed);
        std::vector<Properties> diskRows;
        std::vector<Properties> partitionRows;
        std::vector<Properties> linkRows;
        for (const std::string& key : generator.Keys()) {
            diskRows.push_back({{"DeviceID", WithBackslashes(key)}});
        }
        for (const std::string& key : generator.Keys()) {
            partitionRows.push_back({{"DeviceID", WithBackslashes(key)}});
        }
        const std::vector<std::string> dependents = generator.Keys();
        for (const std::string& antecedent : generator.Keys()) {
            for (const std::string& dependent : dependents) {
                linkRows.push_back({{"Antecedent", WithBackslashes(antecedent)},
                                    {"Dependent", WithBackslashes(dependent)}});
            }
        }
        const platform::Rows disks = RowsOf(diskRows);
        const platform::Rows links = RowsOf(linkRows);
        const platform::Rows partitions = RowsOf(partitionRows);
        const PartitionLinks indexed(disks, links, partitions);
        for (const auto& disk : disks) {
            const std::string deviceId = TextOrEmpty(*disk, "DeviceID");
            const auto walked = LinkedPartitions(links, partitions, deviceId);
            EXPECT_EQ(indexed.PartitionsOfDisk(deviceId), walked) << seed << ' ' << deviceId;
            found += walked.size();
        }
    }
    EXPECT_GT(found, 10000U) << "the generated hosts have too few partitions to tell anything";
}

}  // namespace
}  // namespace qv::test
