#include "source/StatusMap.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

using Texts = std::vector<std::string>;

TEST(MapStatusToOperationalStatus, GivesTheCodeOfEachStatusText) {
    const std::pair<const char*, std::int32_t> rows[] = {
        {"OK", 2},      {"Error", 6},    {"Degraded", 3},   {"Unknown", 0},    {"Pred Fail", 5},
        {"Service", 2}, {"Stressed", 3}, {"NonRecover", 6}, {"No Contact", 0}, {"Lost Comm", 6},
    };
    for (const auto& [text, code] : rows) {
        Texts codes;
        Texts descriptions;
        EXPECT_EQ(MapStatusToOperationalStatus(text, codes, descriptions), code) << text;
        EXPECT_EQ(codes, Texts{std::to_string(code)}) << text;
        EXPECT_EQ(descriptions, Texts{text});
    }
}

TEST(MapStatusToOperationalStatus, GivesATextOutsideTheTableNoCodeButADescription) {
    for (const char* text : {"Starting", "", "ok", "ERROR", "OK ", "PredFail"}) {
        Texts codes;
        Texts descriptions;
        EXPECT_EQ(MapStatusToOperationalStatus(text, codes, descriptions), 0) << text;
        EXPECT_EQ(codes, Texts{}) << text;
        EXPECT_EQ(descriptions, Texts{text});
    }
}

TEST(MapStatusToOperationalStatus, AppendsToBothLists) {
    Texts codes{"9"};
    Texts descriptions{"before"};
    MapStatusToOperationalStatus("OK", codes, descriptions);
    MapStatusToOperationalStatus("odd", codes, descriptions);
    EXPECT_EQ(codes, (Texts{"9", "2"}));
    EXPECT_EQ(descriptions, (Texts{"before", "OK", "odd"}));
}

}  // namespace
}  // namespace qv
