#include "NativeAPI/Request.h"

#include <gmock/gmock.h>

#include "tests/support/Records.h"

namespace qv::test {
namespace {

using testing::Each;
using testing::ResultOf;

TEST(Request, ModeBitsAreThoseOfTheRequests) {
    EXPECT_EQ(mode::allProperties, 2U);
    EXPECT_EQ(mode::keysOnly, 4U);
    EXPECT_EQ(mode::foundByKey, 10U);
}

TEST(Request, WantsAllPropertiesExactlyWithTheBitOfValueTwo) {
    const auto wantsAll = [](std::uint32_t word) {
        return Request{"C", word, ""}.WantsAllProperties();
    };
    EXPECT_THAT((std::vector{2U, 3U, 6U, 10U, 0xFFFFFFFFU}), Each(ResultOf(wantsAll, true)));
    EXPECT_THAT((std::vector{0U, 1U, 4U, 8U, 0xFFFFFFFDU}), Each(ResultOf(wantsAll, false)));
}

TEST(Request, WithoutAPathAcceptsEveryRecord) {
    EXPECT_TRUE((Request{"C", 2, ""}).Accepts(Record("C", {Key("K", "v")})));
    EXPECT_TRUE((Request{"C", 2, ""}).Accepts(Record("D", {})));
}

TEST(Request, AcceptsTheRecordOfItsPathInAnyLetterCase) {
    const InstanceRecord record = Record("QV_C", {Key("K", "Value&1"), Key("L", "w")});
    EXPECT_TRUE((Request{"QV_C", 2, R"(QV_C.K="Value&1",L="w")"}).Accepts(record));
    EXPECT_TRUE((Request{"QV_C", 2, R"(qv_c.k="vALUE&1",l="W")"}).Accepts(record));
}

TEST(Request, RefusesARecordOfAnotherPath) {
    const InstanceRecord record = Record("QV_C", {Key("K", "v"), Key("L", "w")});
    const std::vector<std::string> paths{R"(QV_C.K="x",L="w")",
                                         R"(QV_C.L="w",K="v")",
                                         R"(QV_C.K="v")",
                                         R"(QV_C.K="v",L="w",)",
                                         "QV_C",
                                         " "};
    EXPECT_THAT(paths, Each(ResultOf(
                           [&record](const std::string& path) {
                               return Request{"QV_C", 2, path}.Accepts(record);
                           },
                           false)));
}

}  // namespace
}  // namespace qv::test
