#include "NativeAPI/CapabilityMap.h"

#include <gtest/gtest.h>

#include <limits>

namespace qv::test {
namespace {

TEST(CapabilityMap, GivesTheTextOfEachCode) {
    const std::pair<std::int32_t, std::string_view> rows[] = {
        {0, "Unknown"},
        {1, "Other"},
        {2, "Sequential Access"},
        {3, "Random Access"},
        {4, "Supports Writing"},
        {5, "Encryption"},
        {6, "Compression"},
        {7, "Supports Removeable Media"},
        {8, "Manual Cleaning"},
        {9, "Automatic Cleaning"},
        {10, "SMART Notification"},
        {11, "Supports Dual Sided Media"},
        {12, "Predismount Eject Not Required"},
    };
    for (const auto& [code, text] : rows) {
        EXPECT_EQ(GetCapabilityDescription(code), text) << code;
    }
}

TEST(CapabilityMap, IsUnknownForEveryOtherCode) {
    for (const std::int32_t code : {13, 14, 255, 65535, std::numeric_limits<std::int32_t>::max(),
                                    -1, std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(GetCapabilityDescription(code), "Unknown") << code;
    }
}

}  // namespace
}  // namespace qv::test
