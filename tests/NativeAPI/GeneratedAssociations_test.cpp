// Pairs and triples of endpoints with generated keys, compared with three nested loops that test
// every combination.
#include "catalogue/Catalogue.h"
#include "tests/support/AssociatedHost.h"
#include "tests/support/GeneratedKeys.h"

namespace qv::test {
namespace {

using Keys = std::vector<std::string>;

// Answers each query for the disks with the next list of plug-and-play IDs.
class ChangingDisks : public ScriptedHost {
public:
    explicit ChangingDisks(std::vector<Keys> lists) : lists_(std::move(lists)) {}

    Status RunWqlQuery(std::string_view, std::string_view, platform::Rows& rows) const override {
        rows.clear();
        for (const std::string& key : lists_.at(next_++)) {
            rows.push_back(std::make_shared<ScriptedRow>(Disk(key)));
        }
        return Status::noError;
    }

private:
    std::vector<Keys> lists_;
    mutable std::size_t next_ = 0;
};

const AssociationEnd firmwareEnd{"First", "QV_SATADiskDriveFW", "InstanceID"};
const AssociationEnd packageEnd{"Second", "QV_SATADiskPhysicalPackage", "Tag"};
const AssociationEnd diskEnd{"Third", "QV_SATADiskDrive", "DeviceID"};
const Request anyClass{"QV_Any", mode::keysOnly, {}};

std::string FirmwarePath(const std::string& key) {
    return "QV_SATADiskDriveFW." + KeyText("InstanceID", key);
}

std::vector<Endpoints> PairsByLoops(const std::vector<Keys>& keys, MatchRule rule) {
    std::vector<Endpoints> pairs;
    for (const std::string& a : keys[0]) {
        for (const std::string& b : keys[1]) {
            if (MatchKeyValues(a, b, rule)) {
                pairs.push_back({FirmwarePath(a), PackagePath("QV_SATADiskPhysicalPackage", b)});
            }
        }
    }
    return pairs;
}

std::vector<Endpoints> TriplesByLoops(const std::vector<Keys>& keys, MatchRule rule,
                                      MatchRule secondRule) {
    std::vector<Endpoints> triples;
    for (const std::string& a : keys[0]) {
        for (const std::string& b : keys[1]) {
            for (const std::string& c : keys[2]) {
                if (MatchKeyValues(a, b, rule) && MatchKeyValues(b, c, secondRule)) {
                    triples.push_back({FirmwarePath(a),
                                       PackagePath("QV_SATADiskPhysicalPackage", b), DiskPath(c)});
                }
            }
        }
    }
    return triples;
}

class GeneratedAssociationsTest : public testing::TestWithParam<std::uint32_t> {
protected:
    static std::vector<Keys> KeysOf(std::uint32_t seed) {
        KeyGenerator generator(seed);
        std::vector<Keys> keys;
        while (keys.size() < 3) {
            keys.push_back(generator.Keys());
        }
        return keys;
    }

    MatchRule rule = static_cast<MatchRule>(GetParam());
};

TEST_P(GeneratedAssociationsTest, PairsAreThoseOfTheCrossProductInItsOrder) {
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        const auto keys = KeysOf(seed);
        ChangingDisks host(keys);
        const NativeAPI api(PublishedCatalogue(), host, host, host);
        ASSERT_EQ(api.BuildAssociationPairs(anyClass, firmwareEnd, packageEnd, rule),
                  Associated("QV_Any", {"First", "Second"}, PairsByLoops(keys, rule)))
            << "seed " << seed;
    }
}

TEST_P(GeneratedAssociationsTest, TriplesAreThoseOfTheCrossProductInItsOrder) {
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        const auto keys = KeysOf(seed);
        const auto secondRule = static_cast<MatchRule>(seed % 13);
        ChangingDisks host(keys);
        const NativeAPI api(PublishedCatalogue(), host, host, host);
        ASSERT_EQ(api.BuildAssociationTriples(anyClass, firmwareEnd, packageEnd, diskEnd, rule,
                                              secondRule),
                  Associated("QV_Any", {"First", "Second", "Third"},
                             TriplesByLoops(keys, rule, secondRule)))
            << "seed " << seed;
    }
}

TEST(GeneratedAssociations, PathsAreThoseOfThreeNestedLoops) {
    std::size_t triples = 0;
    for (std::uint32_t seed = 0; seed < 2000; ++seed) {
        KeyGenerator generator(seed);
        const std::vector<Keys> keys{generator.Keys(), generator.Keys(), generator.Keys()};
        const auto expected =
            TriplesByLoops(keys, MatchRule::secondContains, MatchRule::firstContainsToo);
        ChangingDisks host(keys);
        const NativeAPI api(PublishedCatalogue(), host, host, host);
        ASSERT_EQ(
            api.BuildAssociationTriples(anyClass, firmwareEnd, packageEnd, diskEnd,
                                        MatchRule::secondContains, MatchRule::firstContainsToo),
            Associated("QV_Any", {"First", "Second", "Third"}, expected))
            << "seed " << seed;
        triples += expected.size();
    }
    EXPECT_GT(triples, 2000U);
}

INSTANTIATE_TEST_SUITE_P(EveryRule, GeneratedAssociationsTest, testing::Range(0U, 13U),
                         [](const auto& rule) { return "Rule" + std::to_string(rule.param); });

}  // namespace
}  // namespace qv::test
