// The model is closed: each reference leads to an instance, and each association can be followed
// from any of its ends to the others.
#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "qvsata/cim/ObjectPathParser.h"
#include "tests/golden/GoldenFiles.h"
#include "tests/golden/windows/WholeHost.h"

namespace qv::test {
namespace {

using Paths = std::set<std::string>;

/// Each instance's path and those of its neighbours.
using PathGraph = std::map<std::string, Paths>;

PathGraph Reversed(const PathGraph& graph) {
    PathGraph reversed;
    for (const auto& [path, others] : graph) {
        for (const std::string& other : others) {
            reversed[other].insert(path);
        }
    }
    return reversed;
}

class ClosureTest : public testing::TestWithParam<std::filesystem::path> {
protected:
    static std::string RelativePath(const service::Object& object) {
        return service::TextOf(object, "__RELPATH");
    }

    /// Returns the paths that each delivered association refers to.
    std::vector<std::vector<std::string>> References() const {
        std::vector<std::vector<std::string>> references;
        for (const std::string& className : ExpectedAssociationNames()) {
            for (const PublishedInstance& association : whole_.Of(className)) {
                auto& ends = references.emplace_back();
                for (const PublishedProperty& property : association.properties) {
                    if (property.isKey) {
                        ends.push_back(std::get<std::string>(property.value));
                    }
                }
            }
        }
        return references;
    }

    /// Returns the instance at a path, as the path that a client reads from it.
    std::string Follow(const std::string& path) {
        const auto known = followed_.find(path);
        if (known != followed_.end()) {
            return known->second;
        }
        const service::Answer answer = host_.Published().Get(path);
        EXPECT_EQ(answer.status, Status::noError) << path << ": " << answer.message;
        EXPECT_EQ(answer.objects.size(), 1U) << path;
        return followed_[path] = answer.objects.empty() ? "" : RelativePath(*answer.objects[0]);
    }

    /// Returns the references that do not lead to the instance that they name.
    std::vector<std::string> Misleading(const std::vector<std::vector<std::string>>& references) {
        std::vector<std::string> misleading;
        for (const auto& ends : references) {
            std::ranges::copy_if(ends, std::back_inserter(misleading), [this](const auto& end) {
                const auto named = service::ParseObjectPath(end);
                const auto found = service::ParseObjectPath(Follow(end));
                return !named || !found || !service::NamesSameObject(*named, *found);
            });
        }
        return misleading;
    }

    /// Returns the neighbours of each instance that the service finds.
    PathGraph Reached() {
        PathGraph reached;
        for (const std::string& className : ExpectedInstanceClassNames()) {
            for (const auto& object : host_.Published().Enumerate(className).objects) {
                const std::string path = RelativePath(*object);
                if (path.empty()) {
                    continue;  // an endpoint of a disk without a link has no complete key
                }
                const auto answer = host_.Published().Query("ASSOCIATORS OF {" + path + "}");
                EXPECT_EQ(answer.status, Status::noError) << path << ": " << answer.message;
                for (const auto& neighbour : answer.objects) {
                    reached[path].insert(RelativePath(*neighbour));
                }
            }
        }
        return reached;
    }

    /// Returns the neighbours of each instance according to the associations.
    PathGraph Neighbours() {
        PathGraph neighbours;
        for (const auto& ends : References()) {
            for (const std::string& end : ends) {
                for (const std::string& other : ends) {
                    if (other != end) {
                        neighbours[Follow(end)].insert(Follow(other));
                    }
                }
            }
        }
        return neighbours;
    }

    const WholeHost& whole_ = WholeHost::From(GetParam());
    PublishingHost host_{GetParam()};
    /// Where each path leads, looked up once for both tests.
    std::map<std::string, std::string>& followed_ = followed[GetParam()];

private:
    inline static std::map<std::filesystem::path, std::map<std::string, std::string>> followed;
};

TEST_P(ClosureTest, EachReferenceLeadsToTheInstanceThatItNames) {
    EXPECT_THAT(Misleading(References()), testing::IsEmpty());
}

TEST_P(ClosureTest, EachInstanceLeadsToItsNeighboursAndTheyLeadBack) {
    const PathGraph reached = Reached();
    EXPECT_EQ(reached, Neighbours());
    EXPECT_EQ(Reversed(reached), reached);
}

INSTANTIATE_TEST_SUITE_P(ShippedHosts, ClosureTest, testing::ValuesIn(ShippedHosts()), HostName);
INSTANTIATE_TEST_SUITE_P(RealMachines, ClosureTest, testing::ValuesIn(RealMachines()), HostName);

}  // namespace
}  // namespace qv::test
