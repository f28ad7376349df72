#include "NativeAPI/CapabilityMap.h"

#include <gmock/gmock.h>

#include <limits>
#include <vector>

namespace qv::test {
namespace {

TEST(CapabilityMap, ReturnsTheTextOfEachCode) {
    EXPECT_EQ(GetCapabilityDescription(0), "Unknown");
    EXPECT_EQ(GetCapabilityDescription(1), "Other");
    EXPECT_EQ(GetCapabilityDescription(2), "Sequential Access");
    EXPECT_EQ(GetCapabilityDescription(3), "Random Access");
    EXPECT_EQ(GetCapabilityDescription(4), "Supports Writing");
    EXPECT_EQ(GetCapabilityDescription(5), "Encryption");
    EXPECT_EQ(GetCapabilityDescription(6), "Compression");
    EXPECT_EQ(GetCapabilityDescription(7), "Supports Removeable Media");
    EXPECT_EQ(GetCapabilityDescription(8), "Manual Cleaning");
    EXPECT_EQ(GetCapabilityDescription(9), "Automatic Cleaning");
    EXPECT_EQ(GetCapabilityDescription(10), "SMART Notification");
    EXPECT_EQ(GetCapabilityDescription(11), "Supports Dual Sided Media");
    EXPECT_EQ(GetCapabilityDescription(12), "Predismount Eject Not Required");
}

TEST(CapabilityMap, IsUnknownForEveryOtherCode) {
    const std::vector<std::int32_t> others{13,
                                           14,
                                           255,
                                           65535,
                                           -1,
                                           std::numeric_limits<std::int32_t>::max(),
                                           std::numeric_limits<std::int32_t>::min()};
    EXPECT_THAT(others, testing::Each(testing::ResultOf(GetCapabilityDescription, "Unknown")));
}

}  // namespace
}  // namespace qv::test
