#include "qvsata/view/AssociationGraph.h"

#include <gmock/gmock.h>

#include "tests/qvsata/view/Published.h"

namespace qv::test {
namespace {

using testing::HasSubstr;
using view::AssociationGraph;

TEST(AssociationGraph, JoinsInstancesWhateverTheServerInTheReference) {
    const auto disk = Instance("Disk", "Name", "sda");
    const auto port = Instance("Port", "Name", "p0");
    EXPECT_EQ(AssociationGraph({disk, port, Link("Hangs", "A", disk, "B", port)}),
              "digraph associations {\n"
              "    rankdir=LR;\n"
              "    node [shape=box];\n"
              "    node0 [label=\"Disk\\nsda\"];\n"
              "    node1 [label=\"Port\\np0\"];\n"
              "    node0 -> node1 [label=\"Hangs\"];\n"
              "}\n");
}

TEST(AssociationGraph, ShowsAnEndThatIsNoInstance) {
    const auto disk = Instance("Disk", "Name", "sda");
    EXPECT_THAT(AssociationGraph({Link("Hangs", "A", disk, "B", Instance("Port", "Name", "p0"))}),
                HasSubstr("node0 -> node1"));
}

TEST(AssociationGraph, EscapesQuotesAndBackslashes) {
    EXPECT_EQ(view::QuotedForGraph("\\\\.\\D \"x\"\n"), R"("\\\\.\\D \"x\"\n")");
}

}  // namespace
}  // namespace qv::test
