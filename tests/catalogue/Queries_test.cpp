// The queries of each instance class, their order, number and namespace: for all instances, for
// their keys and for the instance with a path.
#include <gtest/gtest.h>

#include "tests/catalogue/ExpectedQueries.h"
#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

// A controller with a channel, a disk on each, and a disk of another interface type.
class QueriesTest : public Builders, public testing::TestWithParam<ExpectedQueries> {
protected:
    QueriesTest() {
        const std::string controller = R"(PCI\VEN_8086&DEV_29&REV_02\3)";
        const std::string channel = R"(PCIIDE\IDECHANNEL\4)";
        const std::string drive1 = R"(\\.\PHYSICALDRIVE1)";
        const std::string drive2 = R"(\\.\PHYSICALDRIVE2)";
        host.Answer(disksQuery, {Disk(R"(IDE\A\1)", drive0),
                                 With(Disk(R"(USB\C\1)", drive2), {{"InterfaceType", "USB"}}),
                                 Disk(R"(IDE\B\1)", drive1)});
        host.Answer(mediaQuery, {Media(drive0, "SA"), Media(drive1, "SB"), Media(drive2, "SC")});
        host.Answer(controllersQuery, {Controller(controller), Controller(channel)});
        host.Answer(controllerLinksQuery,
                    {ControllerLink(controller, channel), ControllerLink(channel, R"(IDE\A\1)"),
                     ControllerLink(controller, R"(IDE\B\1)")});
        host.Answer(partitionLinksQuery, {PartitionLink(drive0, "Disk #0, Partition #0")});
        host.Answer(partitionsQuery, {Partition("Disk #0, Partition #0")});
        host.Answer(publishedDisksQuery, {});
        ServeWith(host, controller, "pciide");
        ServeWith(host, channel, "atapi");
    }
};

TEST_P(QueriesTest, AreTheExpectedOnesForAllInstances) {
    All(GetParam().className);
    EXPECT_EQ(host.asked, GetParam().all);
}

TEST_P(QueriesTest, AreTheExpectedOnesForTheKeys) {
    Keys(GetParam().className);
    EXPECT_EQ(host.asked, GetParam().keysOnly);
}

TEST_P(QueriesTest, AreTheExpectedOnesForAPath) {
    const std::string path = std::string(GetParam().className) + "." + GetParam().keys;
    EXPECT_EQ(At(GetParam().className, path).size(), 1U);
    EXPECT_EQ(host.asked, GetParam().byPath);
}

std::vector<std::string> TableNames() {
    std::vector<std::string> names;
    for (const ExpectedQueries& one : QueriesOfInstanceClasses()) {
        names.emplace_back(one.className);
    }
    return names;
}

TEST(Queries, TableHoldsEveryInstanceClassInTheOrderOfTheCatalogue) {
    EXPECT_EQ(TableNames(), ExpectedInstanceClassNames());
}

INSTANTIATE_TEST_SUITE_P(EachClass, QueriesTest, testing::ValuesIn(QueriesOfInstanceClasses()),
                         [](const auto& one) {
                             return std::string(one.param.className).substr(3);
                         });

}  // namespace
}  // namespace qv::test
