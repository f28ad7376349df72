#include "events/AlertTime.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

constexpr platform::LocalTime earlyTime{2024, 7, 4, 9, 5, 3, 7};
constexpr platform::LocalTime lateTime{1999, 12, 31, 23, 59, 58, 987};

std::string OffsetIn(const platform::TimeZone& zone) {
    return FormatIndicationTime(earlyTime, zone).substr(21);
}

TEST(AlertTime, PadsEveryField) {
    EXPECT_EQ(FormatIndicationTime(earlyTime, {}), "20240704090503.007000+000");
    EXPECT_EQ(FormatEventTime(earlyTime), "20240704090503.007000-000");
}

TEST(AlertTime, WritesFieldsOfFullWidth) {
    EXPECT_EQ(FormatIndicationTime(lateTime, {}), "19991231235958.987000+000");
    EXPECT_EQ(FormatEventTime(lateTime), "19991231235958.987000-000");
}

TEST(AlertTime, IsBehindUtcInTheWest) {
    EXPECT_EQ(OffsetIn({300, 0, -60, false}), "-300");
}

TEST(AlertTime, IsAheadOfUtcInTheEast) {
    EXPECT_EQ(OffsetIn({-60, 0, -60, false}), "+060");
    EXPECT_EQ(OffsetIn({-765, 0, 0, false}), "+765");
}

TEST(AlertTime, CountsTheDaylightBiasInDaylightTimeOnly) {
    EXPECT_EQ(OffsetIn({300, 0, -60, true}), "-240");
    EXPECT_EQ(OffsetIn({-60, 0, -60, true}), "+120");
}

TEST(AlertTime, CountsTheStandardBiasInStandardTimeOnly) {
    EXPECT_EQ(OffsetIn({0, 5, -60, false}), "-005");
    EXPECT_EQ(OffsetIn({0, 5, -60, true}), "+060");
}

TEST(AlertTime, WritesTheSameOffsetForEveryEvent) {
    EXPECT_EQ(FormatEventTime(lateTime).substr(21), "-000");
}

}  // namespace
}  // namespace qv::test
