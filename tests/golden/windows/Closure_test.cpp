// The model is closed: each reference leads to an instance, and each association can be followed
// from any of its ends to the others.
#include <map>
#include <set>

#include "qvsata/cim/ObjectPathParser.h"
#include "tests/golden/GoldenFiles.h"
#include "tests/golden/windows/WholeHost.h"

namespace qv::test {
namespace {

using Paths = std::set<std::string>;

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

    /// Returns the neighbours of each instance according to the associations.
    std::map<std::string, Paths> Neighbours() {
        std::map<std::string, Paths> neighbours;
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
    for (const auto& ends : References()) {
        for (const std::string& end : ends) {
            const auto named = service::ParseObjectPath(end);
            const auto found = service::ParseObjectPath(Follow(end));
            ASSERT_TRUE(named && found) << end;
            EXPECT_TRUE(service::NamesSameObject(*named, *found)) << end;
        }
    }
}

TEST_P(ClosureTest, EachInstanceLeadsToItsNeighboursAndTheyLeadBack) {
    const std::map<std::string, Paths> neighbours = Neighbours();
    std::map<std::string, Paths> reached;
    for (const std::string& className : ExpectedInstanceClassNames()) {
        for (const auto& object : host_.Published().Enumerate(className).objects) {
            const std::string path = RelativePath(*object);
            if (path.empty()) {
                continue;  // an endpoint of a disk without a link has no complete key
            }
            const service::Answer answer = host_.Published().Query("ASSOCIATORS OF {" + path + "}");
            EXPECT_EQ(answer.status, Status::noError) << path << ": " << answer.message;
            for (const auto& neighbour : answer.objects) {
                reached[path].insert(RelativePath(*neighbour));
            }
        }
    }
    EXPECT_EQ(reached, neighbours);
    for (const auto& [path, others] : reached) {
        for (const std::string& other : others) {
            EXPECT_TRUE(reached[other].contains(path)) << other << " does not lead to " << path;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ShippedHosts, ClosureTest, testing::ValuesIn(ShippedHosts()), HostName);
INSTANTIATE_TEST_SUITE_P(RealMachines, ClosureTest, testing::ValuesIn(RealMachines()), HostName);

}  // namespace
}  // namespace qv::test
