#include "tests/golden/GoldenFiles.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

TEST(GoldenFiles, DifferInTheFirstUnequalLine) {
    EXPECT_EQ(FirstDifference("a\nb\nc\n", "a\nx\ny\n"), "line 2\n  published: b\n  golden:    x");
    EXPECT_EQ(FirstDifference("a\n", "a\nb\n"), "line 2\n  published: \n  golden:    b");
    EXPECT_EQ(FirstDifference("a\nb\n", "a\nb\n"), "");
}

}  // namespace
}  // namespace qv::test
