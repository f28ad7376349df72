#include "qvsata/report/TopologyList.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using report::BoundedTo;
using report::TopologyItem;
using view::Style;

TopologyItem DiskItem(const std::string& name, Style style) {
    return {name, "", "", style, {}};
}

/// Returns a computer with a controller and 1000 disks that are OK.
TopologyItem ManyDisks() {
    TopologyItem controller{"controller"};
    controller.parts.resize(1000, DiskItem("fine", Style::good));
    return {"host", "", "", Style::plain, {controller}};
}

TEST(TopologyList, IsLeftAsItIsIfItIsSmall) {
    const TopologyItem bounded = BoundedTo(1002, ManyDisks());
    EXPECT_EQ(bounded.parts.size(), 1U);
    EXPECT_EQ(bounded.parts.front().parts.size(), 1000U);
}

TEST(TopologyList, OfManyCountsThoseThatAreLeftOut) {
    const TopologyItem bounded = BoundedTo(256, ManyDisks());
    EXPECT_EQ(bounded.parts.front().parts.size(), 254U);
    EXPECT_EQ(bounded.parts.back().name, "and 746 more");
}

TEST(TopologyList, OfManyKeepsTheWorstAndWhatLeadsToThem) {
    TopologyItem computer = ManyDisks();
    computer.parts.push_back({"last", "", "", Style::plain, {DiskItem("failed", Style::bad)}});
    const TopologyItem bounded = BoundedTo(3, computer);
    EXPECT_EQ(bounded.parts.at(0).name, "last");
    EXPECT_EQ(bounded.parts.at(0).parts.at(0).name, "failed");
}

}  // namespace
}  // namespace qv::test
