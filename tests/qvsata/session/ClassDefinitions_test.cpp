// The MOF files from which the program reads the classes of its namespace.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

Ending RunWith(const std::filesystem::path& mofFolder) {
    return RunHere(
        {"disks", "--host", QV_SOURCE_DIR "/hosts/ahci-desktop.json", "--mof", mofFolder.string()});
}

TEST(ClassDefinitions, AreMissingInAFolder) {
    const TemporaryFile folder;
    std::filesystem::create_directory(folder.Path());
    const Ending run = RunWith(folder.Path());
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "qvsata: " + (folder.Path() / "cim_schema.mof").string() +
                              ": not found; --mof names the folder of the class definitions\n");
}

TEST(ClassDefinitions, AreReadAgainWhenAFileChanges) {
    const TemporaryFile folder;
    std::filesystem::copy(QV_SOURCE_DIR "/mof", folder.Path());
    EXPECT_EQ(RunWith(folder.Path()).exitCode, 0);
    const auto file = folder.Path() / "cim_schema.mof";
    std::ofstream(file) << "class {";
    const Ending run = RunWith(folder.Path());
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors.find("qvsata: " + file.string() + ":1:7: "), 0U) << run.errors;
}

}  // namespace
}  // namespace qv::test
