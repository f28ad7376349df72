#include "NativeAPI/KeyPairing.h"

#include <gtest/gtest.h>

#include "tests/support/GeneratedKeys.h"
#include "tests/support/PlainPairing.h"

namespace qv::test {
namespace {

using Keys = std::vector<std::string>;

std::size_t PairCount(const Partners& all) {
    std::size_t pairs = 0;
    for (const auto& partners : all) {
        pairs += partners.size();
    }
    return pairs;
}

class KeyPairingTest : public testing::TestWithParam<std::uint32_t> {
protected:
    MatchRule rule = static_cast<MatchRule>(GetParam());
};

TEST_P(KeyPairingTest, FindsWhatTestingEveryPairFinds) {
    std::size_t pairs = 0;
    for (std::uint32_t seed = 0; seed < 3000; ++seed) {
        KeyGenerator generator(seed);
        const Keys first = generator.Keys();
        const Keys second = generator.Keys();
        const Partners expected = PairPlainly(first, second, rule);
        ASSERT_EQ(PairKeys(first, second, rule), expected)
            << "seed " << seed << ": " << testing::PrintToString(first) << " with "
            << testing::PrintToString(second);
        pairs += PairCount(expected);
    }
    // Checks that the generator makes pairs of every kind: otherwise nothing would be compared.
    EXPECT_EQ(pairs > 3000, GetParam() <= 10) << pairs;
}

INSTANTIATE_TEST_SUITE_P(EveryRule, KeyPairingTest, testing::Range(0U, 13U),
                         [](const auto& rule) { return "Rule" + std::to_string(rule.param); });

TEST(KeyPairing, FindsNothingAmongNoKeys) {
    EXPECT_EQ(PairKeys({}, Keys{"a"}, MatchRule::always), Partners{});
    EXPECT_EQ(PairKeys(Keys{"a", ""}, {}, MatchRule::firstContains), Partners({{}, {}}));
}

TEST(KeyPairing, GivesEveryPartnerOfARepeatedKeyInAscendingOrder) {
    EXPECT_EQ(PairKeys(Keys{"x", "X"}, Keys{"X", "y", "x"}, MatchRule::equal),
              Partners({{0, 2}, {0, 2}}));
}

TEST(KeyPairing, AnEmptyKeyIsContainedInEveryKey) {
    EXPECT_EQ(PairKeys(Keys{"abc", ""}, Keys{"b", "", "c"}, MatchRule::firstContains),
              Partners({{0, 1, 2}, {1}}));
}

TEST(KeyPairing, APartThatOccursTwiceIsOnePartner) {
    EXPECT_EQ(PairKeys(Keys{"abab"}, Keys{"ab"}, MatchRule::firstContains), Partners({{0}}));
    EXPECT_EQ(PairKeys(Keys{"a*-*A"}, Keys{"a"}, MatchRule::firstListsSecond), Partners({{0}}));
}

TEST(KeyPairing, AKeyAndItsBeginningAreBothContained) {
    EXPECT_EQ(PairKeys(Keys{"disk&10 connected"}, Keys{"disk&10", "disk&1", "disk&100", "sk&1"},
                       MatchRule::firstContains),
              Partners({{0, 1, 3}}));
}

TEST(KeyPairing, ReversedRulesAreOrderedByTheFirstKeysToo) {
    EXPECT_EQ(PairKeys(Keys{"b", "a"}, Keys{"ab", "a", "b"}, MatchRule::secondContains),
              Partners({{0, 2}, {0, 1}}));
}

TEST(KeyPairing, UpToALimitFindsNothingBeyondIt) {
    const Keys first{"a", "b", "a"};
    const Keys second{"a", "a"};
    EXPECT_EQ(PairKeysUpTo(4, first, second, MatchRule::equal), Partners({{0, 1}, {}, {0, 1}}));
    EXPECT_EQ(PairKeysUpTo(3, first, second, MatchRule::equal), std::nullopt);
    EXPECT_EQ(PairKeysUpTo(3, first, second, MatchRule::secondContains), std::nullopt);
    EXPECT_EQ(PairKeysUpTo(5, first, second, MatchRule::always), std::nullopt);
    EXPECT_EQ(PairKeysUpTo(0, first, {}, MatchRule::always), Partners({{}, {}, {}}));
}

}  // namespace
}  // namespace qv::test
