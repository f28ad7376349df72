// MOF files that cannot be read are one line that names the file, and nothing is printed.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

std::string ErrorWithInstalled(const std::string& file) {
    const Ending run = RunOn("hosts/ahci-desktop.json", {"classes", "--installed", file});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    return run.errors;
}

TEST(UnreadableMof, IsADirectory) {
    EXPECT_EQ(ErrorWithInstalled(QV_SOURCE_DIR),
              "qvsata: " QV_SOURCE_DIR ": a directory, not a file\n");
}

TEST(UnreadableMof, FailsWhileItIsRead) {
    EXPECT_EQ(ErrorWithInstalled("/proc/self/mem"),
              "qvsata: /proc/self/mem: the file cannot be read\n");
}

TEST(UnreadableMof, HasBytesThatAreNoUtf8) {
    const TemporaryFile file;
    std::ofstream(file.Path()) << "[Description(\"a\xFF\xFE\")] class A {};";
    EXPECT_EQ(ErrorWithInstalled(file.Path().string()),
              "qvsata: " + file.Path().string() + ":1:16: not UTF-8\n");
}

TEST(UnreadableMof, IsAmongTheShippedOnes) {
    const TemporaryFile folder;
    std::filesystem::copy(QV_SOURCE_DIR "/mof", folder.Path());
    std::filesystem::remove(folder.Path() / "qvwmisata.mof");
    std::filesystem::create_directory(folder.Path() / "qvwmisata.mof");
    const Ending run = RunHere({"classes", "--host", QV_SOURCE_DIR "/hosts/ahci-desktop.json",
                                "--mof", folder.Path().string()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "qvsata: " + (folder.Path() / "qvwmisata.mof").string() +
                              ": a directory, not a file\n");
}

}  // namespace
}  // namespace qv::test
