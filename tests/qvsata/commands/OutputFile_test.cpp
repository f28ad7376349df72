// Where --output leads, of each command that has it.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <future>
#include <iterator>

#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

namespace fs = std::filesystem;
using testing::SizeIs;

class OutputFile : public testing::TestWithParam<std::string> {
protected:
    OutputFile() { fs::create_directory(folder_.Path()); }

    fs::path In(const char* name) const { return folder_.Path() / name; }

    static Ending WriteTo(const fs::path& file) {
        return RunOn("hosts/ahci-desktop.json", {GetParam(), "-o", file.string()});
    }

    std::vector<fs::path> Files() const {
        return {fs::directory_iterator(folder_.Path()), fs::directory_iterator()};
    }

private:
    const TemporaryFile folder_;
};

TEST_P(OutputFile, ThatIsALinkStaysOneAndItsFileIsReplaced) {
    std::ofstream(In("file")) << "former";
    fs::create_symlink("file", In("link"));
    EXPECT_EQ(WriteTo(In("link")).exitCode, 0);
    EXPECT_TRUE(fs::is_symlink(In("link")));
    EXPECT_GT(fs::file_size(In("file")), 1'000U);
    EXPECT_THAT(Files(), SizeIs(2));
}

TEST_P(OutputFile, ThatIsAPipeIsWrittenTo) {
    ASSERT_EQ(mkfifo(In("pipe").c_str(), S_IRUSR | S_IWUSR), 0);
    std::fstream held(In("pipe"));  // opened for both, so that no side waits for the other
    std::ifstream reader(In("pipe"));
    auto content = std::async(std::launch::async, [&reader] {
        return std::string(std::istreambuf_iterator<char>(reader), {});
    });
    EXPECT_EQ(WriteTo(In("pipe")).exitCode, 0);
    held.close();
    EXPECT_TRUE(fs::is_fifo(In("pipe")));
    EXPECT_GT(content.get().size(), 1'000U);
}

TEST_P(OutputFile, ThatIsAFullDeviceIsAFailure) {
    fs::create_symlink("/dev/full", In("full"));
    const Ending run = WriteTo(In("full"));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "qvsata: " + In("full").string() + ": the file cannot be written\n");
    EXPECT_TRUE(fs::is_symlink(In("full")));
    EXPECT_THAT(Files(), SizeIs(1));
}

TEST_P(OutputFile, ThatIsAFolderIsAFailure) {
    fs::create_directory(In("folder"));
    EXPECT_EQ(WriteTo(In("folder")).exitCode, 1);
    EXPECT_TRUE(fs::is_empty(In("folder")));
    EXPECT_THAT(Files(), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(Commands, OutputFile, testing::Values("capture", "metrics", "report"));

}  // namespace
}  // namespace qv::test
