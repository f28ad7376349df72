// The MOF files from which the program reads the classes of its namespace.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

TEST(ClassDefinitions, AreMissingInAFolder) {
    const TemporaryFile folder;
    std::filesystem::create_directory(folder.Path());
    const std::string name = folder.Path().string();
    const Ending run =
        RunHere({"disks", "--host", QV_SOURCE_DIR "/hosts/ahci-desktop.json", "--mof", name});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "qvsata: " + (folder.Path() / "cim_schema.mof").string() +
                              ": not found; --mof names the folder of the class definitions\n");
}

}  // namespace
}  // namespace qv::test
