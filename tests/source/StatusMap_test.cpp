#include "source/StatusMap.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using Strings = std::vector<std::string>;

TEST(StatusMap, GivesTheCodeOfEachStatusText) {
    const std::pair<const char*, std::int32_t> rows[] = {
        {"OK", 2},      {"Error", 6},    {"Degraded", 3},   {"Unknown", 0},    {"Pred Fail", 5},
        {"Service", 2}, {"Stressed", 3}, {"NonRecover", 6}, {"No Contact", 0}, {"Lost Comm", 6},
    };
    for (const auto& [text, code] : rows) {
        Strings codes;
        Strings descriptions;
        EXPECT_EQ(MapStatusToOperationalStatus(text, codes, descriptions), code) << text;
        EXPECT_EQ(codes, Strings{std::to_string(code)}) << text;
        EXPECT_EQ(descriptions, Strings{text});
    }
}

TEST(StatusMap, GivesATextOutsideTheTableNoCodeButADescription) {
    for (const char* text : {"Starting", "", "ok", "ERROR", "OK ", "PredFail"}) {
        Strings codes;
        Strings descriptions;
        EXPECT_EQ(MapStatusToOperationalStatus(text, codes, descriptions), 0) << text;
        EXPECT_EQ(codes, Strings{}) << text;
        EXPECT_EQ(descriptions, Strings{text});
    }
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
