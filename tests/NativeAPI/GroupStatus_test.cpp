#include "NativeAPI/GroupStatus.h"

#include <gtest/gtest.h>

#include <vector>

namespace qv {

// In the namespace in which GoogleTest looks for it.
void PrintTo(const GroupStatus& status, std::ostream* out) {
    *out << status.code << " " << status.text;
}

}  // namespace qv

namespace qv::test {
namespace {

constexpr GroupStatus ok{2, "OK"};
constexpr GroupStatus degraded{3, "Degraded"};
constexpr GroupStatus error{6, "Error"};
constexpr std::nullopt_t none = std::nullopt;

GroupStatus Of(const std::vector<std::optional<std::int32_t>>& codes) {
    return RollUp(codes);
}

TEST(GroupStatus, OfNoDisksIsOk) {
    EXPECT_EQ(Of({}), ok);
}

TEST(GroupStatus, OfOneDiskIsItsStatus) {
    EXPECT_EQ(Of({2}), ok);
    EXPECT_EQ(Of({3}), degraded);
    EXPECT_EQ(Of({6}), error);
}

TEST(GroupStatus, TakesAnyOtherCodeForOk) {
    EXPECT_EQ(Of({5}), ok);
    EXPECT_EQ(Of({1}), ok);
    EXPECT_EQ(Of({-1}), ok);
    EXPECT_EQ(Of({65535}), ok);
}

TEST(GroupStatus, IsSetBackByALaterDiskThatIsOk) {
    EXPECT_EQ(Of({2, 6, 2}), ok);
    EXPECT_EQ(Of({3, 2}), ok);
    EXPECT_EQ(Of({6, 5}), ok);
}

TEST(GroupStatus, IsSetBackToOkByADegradedDiskAfterAFailedOne) {
    EXPECT_EQ(Of({6, 3}), ok);
    EXPECT_EQ(Of({6, 3, 3}), degraded);
}

TEST(GroupStatus, IsDegradedOrFailedByALaterDisk) {
    EXPECT_EQ(Of({2, 2, 6}), error);
    EXPECT_EQ(Of({2, 3}), degraded);
    EXPECT_EQ(Of({3, 6}), error);
}

TEST(GroupStatus, IsLeftAsItWasByAnUnknownStatus) {
    EXPECT_EQ(Of({0}), ok);
    EXPECT_EQ(Of({3, 0}), degraded);
    EXPECT_EQ(Of({6, 0, 0}), error);
}

TEST(GroupStatus, RepeatsThePreviousDiskForADiskWithoutCode) {
    EXPECT_EQ(Of({6, none}), error);
    EXPECT_EQ(Of({none}), ok);
    EXPECT_EQ(Of({none, 3}), degraded);
    EXPECT_EQ(Of({3, none, none}), degraded);
}

TEST(GroupStatus, ARepeatedCodeIsAppliedAgain) {
    // Degraded after a failure is OK; degraded once more is degraded.
    EXPECT_EQ(Of({6, 3, none}), degraded);
    // The repeated code is the unknown one and changes nothing.
    EXPECT_EQ(Of({6, 0, none}), error);
}

}  // namespace
}  // namespace qv::test
