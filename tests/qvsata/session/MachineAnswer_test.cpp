// What the commands that take several recordings print about each.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const std::string desktop = QV_SOURCE_DIR "/hosts/ahci-desktop.json";
const std::string legacy = QV_SOURCE_DIR "/hosts/legacy-ide.json";
const std::string mixedBuses = QV_SOURCE_DIR "/hosts/mixed-buses-failing.json";

Ending RunOnAll(std::vector<std::string> command, const std::vector<std::string>& hosts) {
    for (const std::string& host : hosts) {
        command.insert(command.end(), {"--host", host});
    }
    command.insert(command.end(), {"--mof", QV_SOURCE_DIR "/mof"});
    return RunHere(command);
}

std::vector<json> LinesOf(const std::string& text) {
    std::vector<json> lines;
    std::istringstream rest(text);
    for (std::string line; std::getline(rest, line);) {
        lines.push_back(json::parse(line));
    }
    return lines;
}

/// A folder of recordings.
class FolderOfRecordings : public testing::Test {
protected:
    FolderOfRecordings() { std::filesystem::create_directory(folder_.Path()); }

    std::string PathOf(const std::string& name) const { return Folder() + '/' + name; }
    std::string Folder() const { return folder_.Path().string(); }
    void Copy(const std::string& recording, const std::string& name) const {
        std::filesystem::copy_file(recording, PathOf(name));
    }
    void Write(const std::string& name, const std::string& text) const {
        std::ofstream(PathOf(name)) << text;
    }

private:
    const TemporaryFile folder_;
};

class ManyMachines : public testing::TestWithParam<const char*> {};

TEST_P(ManyMachines, HaveEachTheTextOfItsOwnUnderAHeading) {
    const Ending run = RunOnAll({GetParam()}, {desktop, legacy});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, IsEmpty());
    EXPECT_THAT(run.output, AllOf(StartsWith("study-desk.example.org (" + desktop + ")\n"),
                                  HasSubstr("\n\n"
                                            "frontoffice2.example.org (" +
                                            legacy + ")\n")));
}

TEST_P(ManyMachines, HaveEachADocumentInALine) {
    const std::vector<json> lines =
        LinesOf(RunOnAll({GetParam(), "--format", "json"}, {desktop, legacy}).output);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]["formatVersion"], 1);
    EXPECT_EQ(lines[0]["host"], "study-desk.example.org");
    EXPECT_EQ(lines[0]["recording"], desktop);
    EXPECT_EQ(lines[0]["unread"], json::array());
    EXPECT_EQ(lines[1]["host"], "frontoffice2.example.org");
}

INSTANTIATE_TEST_SUITE_P(Commands, ManyMachines, testing::Values("explain", "disks", "sources"),
                         [](const auto& command) { return std::string(command.param); });

TEST(MachineAnswer, OfManyHasTheMembersOfTheOnlyOne) {
    const json alone = json::parse(RunOnAll({"explain", "--format", "json"}, {desktop}).output);
    json line = LinesOf(RunOnAll({"explain", "--format", "json"}, {desktop, legacy}).output)[0];
    line.erase("host");
    line.erase("recording");
    EXPECT_EQ(line, alone);
}

TEST(MachineAnswer, OfManyHasTheTextOfTheOnlyOne) {
    const std::string text = RunOnAll({"disks"}, {desktop, legacy}).output;
    EXPECT_THAT(text, HasSubstr(")\n" + RunOnAll({"disks"}, {desktop}).output + '\n'));
    EXPECT_TRUE(text.ends_with(")\n" + RunOnAll({"disks"}, {legacy}).output));
}

TEST_F(FolderOfRecordings, IsReadInTheOrderOfTheNames) {
    Copy(desktop, "b.json");
    Copy(legacy, "a.json");
    Write("notes.txt", "none");
    const std::vector<json> lines =
        LinesOf(RunOnAll({"disks", "--format", "json"}, {Folder()}).output);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]["recording"], PathOf("a.json"));
    EXPECT_EQ(lines[1]["recording"], PathOf("b.json"));
}

TEST_F(FolderOfRecordings, WithOneRecordingHasLinesToo) {
    Copy(desktop, "a.json");
    EXPECT_EQ(LinesOf(RunOnAll({"disks", "--format", "json"}, {Folder()}).output).size(), 1U);
}

TEST_F(FolderOfRecordings, WithABrokenOnePrintsTheOthersAndFails) {
    Write("a.json", "{");
    Copy(legacy, "b.json");
    const Ending run = RunOnAll({"disks"}, {Folder()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, StartsWith("qvsata: " + PathOf("a.json") + ": "));
    EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1);
    EXPECT_THAT(run.output, StartsWith("frontoffice2.example.org ("));
}

TEST_F(FolderOfRecordings, WithAnUnreadSourceNamesTheRecording) {
    Write("a.json", R"({"computer": {"netbios": "DEN"}, "namespaces": {}})");
    Copy(legacy, "b.json");
    const Ending run = RunOnAll({"disks", "--format", "json"}, {Folder()});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.errors, StartsWith(PathOf("a.json") + ": root\\CIMv2: "));
    const std::vector<json> lines = LinesOf(run.output);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]["host"], "DEN");
    EXPECT_THAT(lines[0]["unread"], Not(IsEmpty()));
    EXPECT_THAT(lines[1]["unread"], IsEmpty());
}

TEST_F(FolderOfRecordings, WithABrokenOneAndAnUnreadSourceFails) {
    Write("a.json", R"({"computer": {"netbios": "DEN"}, "namespaces": {}})");
    Write("b.json", "{");
    Copy(legacy, "c.json");
    EXPECT_EQ(RunOnAll({"disks"}, {Folder()}).exitCode, 1);
}

TEST_F(FolderOfRecordings, ShowsControlCharactersOfNamesAsCodes) {
    Copy(legacy, "a\x1b[2J.json");
    const Ending run = RunOnAll({"disks"}, {Folder()});
    EXPECT_THAT(run.output, AllOf(HasSubstr("a\\x1b[2J.json)\n"), Not(HasSubstr("\x1b"))));
}

TEST_F(FolderOfRecordings, WithoutRecordingsIsAnError) {
    const Ending run = RunOnAll({"disks"}, {Folder()});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "qvsata: " + Folder() + ": a folder without recordings (*.json)\n");
}

TEST(ManyMachinesWithADisk, AreThoseOnWhichOneFits) {
    const Ending run = RunOnAll({"explain", "PELION"}, {desktop, mixedBuses, legacy});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, IsEmpty());
    EXPECT_THAT(run.output, AllOf(HasSubstr("PELION P1 1TB"), HasSubstr(mixedBuses),
                                  Not(HasSubstr(desktop)), Not(HasSubstr(legacy))));
}

TEST(ManyMachinesWithADisk, AreNone) {
    const Ending run = RunOnAll({"explain", "no such disk"}, {desktop, legacy});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "qvsata: nothing found in 2 recordings\n");
}

TEST(ManyMachinesWithADisk, AreAmbiguousAlone) {
    const Ending run = RunOnAll({"explain", "ata"}, {desktop, desktop});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, AllOf(StartsWith(desktop + ": disks that would fit:\n" + desktop),
                                  HasSubstr("qvsata: " + desktop + ": 'ata' fits several disks")));
}

}  // namespace
}  // namespace qv::test
