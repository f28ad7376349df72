#include "source/EmbeddedPaths.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

std::string Reduced(std::string path) {
    ReduceEmbeddedPaths(path);
    return path;
}

TEST(EmbeddedPaths, LeavesAPathWithoutReferencesAlone) {
    EXPECT_EQ(Reduced(R"(C.K="v",L="a:b")"), R"(C.K="v",L="a:b")");
    EXPECT_EQ(Reduced(""), "");
}

TEST(EmbeddedPaths, LosesServerAndNamespaceOfAReference) {
    EXPECT_EQ(Reduced(R"(A.R="\\\\SRV\\root\\QVQ:C.K=\"v\"")"), R"(A.R="C.K=\"v\"")");
}

TEST(EmbeddedPaths, LosesThemOfEveryReference) {
    EXPECT_EQ(Reduced(R"(A.R="\\\\SRV\\root\\QVQ:C.K=\"v\"",S="\\\\.\\root\\x:D.K=\"w\"")"),
              R"(A.R="C.K=\"v\"",S="D.K=\"w\"")");
}

TEST(EmbeddedPaths, CutsUpToTheFirstColonOnly) {
    EXPECT_EQ(Reduced(R"(A.R="\\\\SRV\\root:C.K=\"a:b\"")"), R"(A.R="C.K=\"a:b\"")");
}

TEST(EmbeddedPaths, KeepsBackslashesInRunsOfFewerThanFour) {
    EXPECT_EQ(Reduced(R"(C.K="\\.\\x:y\\\z:")"), R"(C.K="\\.\\x:y\\\z:")");
}

TEST(EmbeddedPaths, TakesTheFirstFourOfALongerRun) {
    EXPECT_EQ(Reduced(R"(C.K="\\\\\\S:v")"), R"(C.K="v")");
}

TEST(EmbeddedPaths, IgnoresAColonInFrontOfTheRun) {
    std::string path = R"(C.K="a:\\\\S:v")";
    EXPECT_TRUE(ReduceFirstEmbeddedPath(path));
    EXPECT_EQ(path, R"(C.K="a:v")");
}

TEST(EmbeddedPaths, TakesOneReferenceInAStep) {
    std::string path = R"(\\\\A:x\\\\B:y)";
    EXPECT_TRUE(ReduceFirstEmbeddedPath(path));
    EXPECT_EQ(path, R"(x\\\\B:y)");
    EXPECT_TRUE(ReduceFirstEmbeddedPath(path));
    EXPECT_EQ(path, "xy");
    EXPECT_FALSE(ReduceFirstEmbeddedPath(path));
    EXPECT_EQ(path, "xy");
}

// The step reports that more remains and changes nothing, so that the removal never ends.
TEST(EmbeddedPaths, RepeatsAStepWithoutAColonForEver) {
    std::string path = R"(C.K="a:\\\\S")";
    EXPECT_TRUE(ReduceFirstEmbeddedPath(path));
    EXPECT_EQ(path, R"(C.K="a:\\\\S")");
}

}  // namespace
}  // namespace qv::test
