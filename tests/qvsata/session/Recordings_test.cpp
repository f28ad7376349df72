#include "qvsata/session/Recordings.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <fstream>

#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class RecordingsTest : public testing::Test {
protected:
    RecordingsTest() {
        fs::create_directory(folder_.Path());
        std::ofstream(In("b.json")) << "{}";
    }

    fs::path In(const char* name) const { return folder_.Path() / name; }
    std::vector<std::string> Found() const { return tool::RecordingsIn(folder_.Path().string()); }

private:
    const TemporaryFile folder_;
};

TEST_F(RecordingsTest, AreTheFilesOfAFolderByName) {
    std::ofstream(In("c.JSON")) << "{}";
    std::ofstream(In("a.json")) << "{}";
    std::ofstream(In("a.txt")) << "{}";
    EXPECT_THAT(Found(), ElementsAre(In("a.json"), In("b.json"), In("c.JSON")));
}

TEST_F(RecordingsTest, AreNeitherPipesNorFolders) {
    ASSERT_EQ(mkfifo(In("a.json").c_str(), S_IRUSR | S_IWUSR), 0);
    fs::create_symlink("a.json", In("c.json"));
    fs::create_directory(In("d.json"));
    EXPECT_THAT(Found(), ElementsAre(In("b.json")));
}

// One that leads nowhere is reported as a missing file.
TEST_F(RecordingsTest, AreLinksToFilesToo) {
    fs::create_symlink("b.json", In("a.json"));
    fs::create_symlink("none", In("c.json"));
    EXPECT_THAT(Found(), ElementsAre(In("a.json"), In("b.json"), In("c.json")));
}

}  // namespace
}  // namespace qv::test
