#pragma once

#include <algorithm>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/golden/windows/PublishingHost.h"

namespace qv::test {

/// Everything that the library publishes for one recorded host.
struct WholeHost {
    std::string prefix;  ///< of its paths
    std::vector<PublishedInstances> classes;
    std::vector<RefusedPut> refused;

    const std::vector<PublishedInstance>& Of(const std::string& className) const {
        return std::ranges::find(classes, className, &PublishedInstances::className)->instances;
    }

    /// Returns the host of a recording, which is published once in this process. No other host may
    /// exist then.
    static const WholeHost& From(const std::filesystem::path& recording) {
        static std::map<std::filesystem::path, WholeHost> known;
        auto found = known.find(recording);
        if (found == known.end()) {
            PublishingHost host(recording);
            WholeHost whole{host.Prefix(), host.PublishAll(), host.Refused()};
            found = known.emplace(recording, std::move(whole)).first;
        }
        return found->second;
    }
};

}  // namespace qv::test
