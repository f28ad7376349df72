#include "source/StatusMap.h"

#include <gtest/gtest.h>

#include <tuple>

namespace qv::test {
namespace {

using Strings = std::vector<std::string>;

// The result for a status text: its code, the codes and the descriptions.
using Mapped = std::tuple<std::int32_t, Strings, Strings>;

Mapped Map(const std::string& text) {
    Strings codes;
    Strings descriptions;
    const std::int32_t code = MapStatusToOperationalStatus(text, codes, descriptions);
    return {code, codes, descriptions};
}

TEST(StatusMap, ReturnsTheCodeOfEachStatusText) {
    EXPECT_EQ(Map("OK"), Mapped(2, {"2"}, {"OK"}));
    EXPECT_EQ(Map("Error"), Mapped(6, {"6"}, {"Error"}));
    EXPECT_EQ(Map("Degraded"), Mapped(3, {"3"}, {"Degraded"}));
    EXPECT_EQ(Map("Unknown"), Mapped(0, {"0"}, {"Unknown"}));
    EXPECT_EQ(Map("Pred Fail"), Mapped(5, {"5"}, {"Pred Fail"}));
    EXPECT_EQ(Map("Service"), Mapped(2, {"2"}, {"Service"}));
    EXPECT_EQ(Map("Stressed"), Mapped(3, {"3"}, {"Stressed"}));
    EXPECT_EQ(Map("NonRecover"), Mapped(6, {"6"}, {"NonRecover"}));
    EXPECT_EQ(Map("No Contact"), Mapped(0, {"0"}, {"No Contact"}));
    EXPECT_EQ(Map("Lost Comm"), Mapped(6, {"6"}, {"Lost Comm"}));
}

TEST(StatusMap, ReturnsNoCodeButADescriptionForATextOutsideTheTable) {
    EXPECT_EQ(Map("Starting"), Mapped(0, {}, {"Starting"}));
    EXPECT_EQ(Map(""), Mapped(0, {}, {""}));
    EXPECT_EQ(Map("ok"), Mapped(0, {}, {"ok"}));
    EXPECT_EQ(Map("ERROR"), Mapped(0, {}, {"ERROR"}));
    EXPECT_EQ(Map("OK "), Mapped(0, {}, {"OK "}));
    EXPECT_EQ(Map("PredFail"), Mapped(0, {}, {"PredFail"}));
}

TEST(StatusMap, AppendsToBothLists) {
    Strings codes{"9"};
    Strings descriptions{"before"};
    MapStatusToOperationalStatus("OK", codes, descriptions);
    MapStatusToOperationalStatus("odd", codes, descriptions);
    EXPECT_EQ(codes, (Strings{"9", "2"}));
    EXPECT_EQ(descriptions, (Strings{"before", "OK", "odd"}));
}

}  // namespace
}  // namespace qv::test
