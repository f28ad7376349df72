#include "tests/golden/GoldenText.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

const std::string prefix = NamespacePrefix("SRV");

const PublishedInstance link{"C_Link",
                             {{"Left", 8, R"(\\SRV\root\QVQ:C.K="v")", true},
                              {"State", 3, std::int64_t{2}, false},
                              {"Codes", 0x2003, std::vector<std::int64_t>{2, 6}, false},
                              {"Texts", 0x2008, std::vector<std::string>{"a", "b"}, false},
                              {"None", 1, {}, false}}};

TEST(GoldenText, HasALineForEachPutUnderThePath) {
    EXPECT_EQ(GoldenText({{"C_Link", {link}}, {"C_Other", {}}}, prefix),
              "== C_Link: 1\n"
              "\n"
              "C_Link.Left=\"C.K=\\\"v\\\"\"\n"
              "  key Left: VT_BSTR \"\\\\SRV\\root\\QVQ:C.K=\"v\"\"\n"
              "      State: VT_I4 2\n"
              "      Codes: VT_ARRAY|VT_I4 {2, 6}\n"
              "      Texts: VT_ARRAY|VT_BSTR {\"a\", \"b\"}\n"
              "      None: VT_NULL null\n"
              "\n"
              "== C_Other: 0\n"
              "\n");
}

TEST(GoldenText, ListsKeysOfAPathInTheOrderOfThePuts) {
    EXPECT_EQ(PathOf({"C", {{"Z", 8, "1", true}, {"B", 8, "x", false}, {"A", 8, "2", true}}}, ""),
              R"(C.Z="1",A="2")");
}

TEST(GoldenText, ReadsTheLastOfSeveralPuts) {
    const PublishedInstance twice{"C", {{"A", 8, "old", false}, {"A", 8, "new", false}}};
    EXPECT_EQ(TextOf(twice, "A"), "new");
    EXPECT_EQ(TextOf(twice, "B"), "");
}

}  // namespace
}  // namespace qv::test
