// Graphviz accepts the tool's graphs, whatever their names.
#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "qvsata/view/AssociationGraph.h"
#include "tests/qvsata/view/Published.h"

namespace qv::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// A folder for one test; the destructor deletes it.
class GraphvizAcceptanceTest : public testing::Test {
protected:
    GraphvizAcceptanceTest() { std::filesystem::create_directory(folder_); }
    ~GraphvizAcceptanceTest() override { std::filesystem::remove_all(folder_); }

    int Draw(const std::string& graph) const {
        std::ofstream(folder_ / "graph.dot") << graph;
        const std::string command = "cd '" + folder_.string() + "' && dot -Tsvg graph.dot";
        return std::system((command + " >graph.svg 2>warnings.txt").c_str());
    }

    std::string Text(const char* file) const {
        std::ifstream stream(folder_ / file);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    const std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("qv-graph." + std::to_string(getpid()));
};

TEST_F(GraphvizAcceptanceTest, AcceptsAGraphWithQuotesBackslashesAndLetters) {
    const auto disk = Instance("Disk", "Name", R"(\\.\D "0"\)");
    const auto port = Instance("Port", "Name", "Zw\xC3\xB6lf");
    EXPECT_EQ(Draw(view::AssociationGraph({disk, port, Link("Hangs", "A", disk, "B", port)})), 0);
    EXPECT_THAT(Text("warnings.txt"), IsEmpty());
    EXPECT_THAT(Text("graph.svg"), HasSubstr("Hangs"));
}

}  // namespace
}  // namespace qv::test
