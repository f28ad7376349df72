// PartitionLinks, compared with a plain search of every link and partition, on generated hosts.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

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

platform::Rows DeviceRows(const std::vector<std::string>& keys) {
    std::vector<Properties> rows;
    for (const std::string& key : keys) {
        rows.push_back({{"DeviceID", WithBackslashes(key)}});
    }
    return RowsOf(rows);
}

// Returns a link from each antecedent to each dependent.
platform::Rows LinkRows(const std::vector<std::string>& dependents,
                        const std::vector<std::string>& antecedents) {
    std::vector<Properties> rows;
    for (const std::string& antecedent : antecedents) {
        for (const std::string& dependent : dependents) {
            rows.push_back({{"Antecedent", WithBackslashes(antecedent)},
                            {"Dependent", WithBackslashes(dependent)}});
        }
    }
    return RowsOf(rows);
}

struct GeneratedHost {
    explicit GeneratedHost(KeyGenerator generator)
        : disks(DeviceRows(generator.Keys())), partitions(DeviceRows(generator.Keys())) {
        const std::vector<std::string> dependents = generator.Keys();
        links = LinkRows(dependents, generator.Keys());
    }

    platform::Rows disks;
    platform::Rows partitions;
    platform::Rows links;
};

using PartitionsByDisk = std::map<std::string, std::vector<const platform::Row*>>;

PartitionsByDisk IndexedPartitions(const GeneratedHost& host) {
    const PartitionLinks indexed(host.disks, host.links, host.partitions);
    PartitionsByDisk found;
    for (const auto& disk : host.disks) {
        const std::string deviceId = TextOrEmpty(*disk, "DeviceID");
        found[deviceId] = indexed.PartitionsOfDisk(deviceId);
    }
    return found;
}

PartitionsByDisk WalkedPartitions(const GeneratedHost& host) {
    PartitionsByDisk found;
    for (const auto& disk : host.disks) {
        const std::string deviceId = TextOrEmpty(*disk, "DeviceID");
        found[deviceId] = LinkedPartitions(host.links, host.partitions, deviceId);
    }
    return found;
}

std::size_t PartitionCount(const PartitionsByDisk& found) {
    std::size_t count = 0;
    for (const auto& [deviceId, partitions] : found) {
        count += partitions.size();
    }
    return count;
}

TEST(PartitionLinksOracle, FindWhatThePlainWalkFinds) {
    std::size_t found = 0;
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        const GeneratedHost host{KeyGenerator(seed)};
        const PartitionsByDisk walked = WalkedPartitions(host);
        ASSERT_EQ(IndexedPartitions(host), walked) << "seed " << seed;
        found += PartitionCount(walked);
    }
    EXPECT_GT(found, 10000U) << "the generated hosts have too few partitions to tell anything";
}

}  // namespace
}  // namespace qv::test
