// Texts of devices that would control a terminal or forge lines, through the commands.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string hostile = "Evil\x1B[2J\r\nforged: OK\u202E\u0085\U000E0041<b>&amp;\"\x07";
const std::string escapedHostile =
    "Evil\x1B[2J\r\nforged: OK\u202E\u0085\U000E0041<b>&amp;\\\"\x07";
const std::string longHostile = hostile + std::string(70'000, 'x');

/// A recording whose texts for people are all hostile; one is long, too. And a recording that is
/// hostile wherever it can be.
class HostileTextsTest : public testing::Test {
protected:
    HostileTextsTest() {
        json host;
        std::ifstream(QV_SOURCE_DIR "/hosts/ahci-desktop.json") >> host;
        json all = host;
        for (json& rows : host["namespaces"]["root\\CIMv2"]) {
            for (json& row : rows) {
                Spoil(row);
            }
        }
        host["namespaces"]["root\\CIMv2"]["Win32_DiskDrive"][0]["Model"] = longHostile;
        std::ofstream(file_.Path()) << host;
        SpoilAll(all);
        std::ofstream(all_.Path()) << all;
    }

    std::string File() const { return file_.Path().string(); }
    std::string All() const { return all_.Path().string(); }

    Ending Run(std::vector<std::string> command) const { return RunOnFile(File(), command); }

    static Ending RunOnFile(const std::string& file, std::vector<std::string> command) {
        command.insert(command.end(), {"--host", file, "--mof", QV_SOURCE_DIR "/mof"});
        return RunHere(command);
    }

private:
    static void Spoil(json& row) {
        for (const char* const property :
             {"Model", "Caption", "Description", "Name", "SerialNumber", "FirmwareRevision",
              "Manufacturer", "Status"}) {
            if (row.contains(property) && row[property].is_string()) {
                row[property] = hostile;
            }
        }
    }

    static void SpoilTexts(json& object) {
        for (auto& [name, value] : object.items()) {
            if (name == "Antecedent" || name == "Dependent") {
                // Names the spoiled ID: NAMESPACE:CLASS.DeviceID="ID".
                auto& path = value.get_ref<std::string&>();
                path.insert(path.size() - 1, escapedHostile);
            } else if (value.is_string() && name != "InterfaceType") {  // which chooses the disks
                value.get_ref<std::string&>() += hostile;
            }
        }
    }

    static void SpoilAll(json& host) {
        SpoilTexts(host["computer"]);
        for (json& classes : host["namespaces"]) {
            for (json& rows : classes) {
                for (json& row : rows) {
                    SpoilTexts(row);
                }
            }
            classes[hostile] = {{"fails", true}};
        }
        host["namespaces"][hostile] = json::object();
    }

    const TemporaryFile file_;
    const TemporaryFile all_;
};

void ExpectHarmless(const Ending& run) {
    EXPECT_NE(run.exitCode, 2) << run.errors;
    EXPECT_THAT(run.output + run.errors,
                AllOf(Not(HasSubstr("\x1B")), Not(HasSubstr("\r")), Not(HasSubstr("\x07")),
                      Not(HasSubstr("\nforged")), Not(HasSubstr("\u202E")),
                      Not(HasSubstr("\u0085")), Not(HasSubstr("\U000E0041"))));
}

class HostileTexts : public HostileTextsTest,
                     public testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(HostileTexts, DoNotReachATerminal) {
    ExpectHarmless(Run(GetParam()));
}

TEST_P(HostileTexts, InAnyFieldDoNotReachATerminal) {
    ExpectHarmless(RunOnFile(All(), GetParam()));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, HostileTexts,
    testing::Values(std::vector<std::string>{"disks"},
                    std::vector<std::string>{"disks", "--format", "json"},
                    std::vector<std::string>{"check"}, std::vector<std::string>{"explain"},
                    std::vector<std::string>{"explain", "--format", "json"},
                    std::vector<std::string>{"explain", "0"},
                    std::vector<std::string>{"explain", "fits none"},
                    std::vector<std::string>{"explain", "Evil"},  // fits all
                    std::vector<std::string>{"enumerate", "CIM_ManagedElement", "--format", "json"},
                    std::vector<std::string>{"topology"},
                    std::vector<std::string>{"topology", "--format", "dot"},
                    std::vector<std::string>{"topology", "--format", "dot", "--all"},
                    std::vector<std::string>{"classes"}, std::vector<std::string>{"sources"},
                    std::vector<std::string>{"metrics"},
                    std::vector<std::string>{"enumerate", "CIM_ManagedElement"},
                    std::vector<std::string>{"enumerate", "CIM_ManagedElement", "--format", "mof"},
                    std::vector<std::string>{"get", "--disk", "0"},
                    std::vector<std::string>{"get", "QV_SATADiskDrive.Name='Evil'"},
                    std::vector<std::string>{"associators", "--disk", "0"},
                    std::vector<std::string>{"references", "--disk", "0", "--format", "mof"},
                    std::vector<std::string>{"query", "SELECT * FROM CIM_DiskDrive"}));

TEST_F(HostileTextsTest, OfADifferenceDoNotReachATerminal) {
    const std::string usual = QV_SOURCE_DIR "/hosts/ahci-desktop.json";
    const std::string mof = QV_SOURCE_DIR "/mof";
    ExpectHarmless(RunHere({"diff", usual, File(), "--mof", mof}));
    ExpectHarmless(RunHere({"diff", usual, All(), "--mof", mof}));
    ExpectHarmless(RunHere({"diff", All(), usual, "--mof", mof}));
}

TEST_F(HostileTextsTest, OfAWatchedMachineDoNotReachATerminal) {
    ExpectHarmless(
        RunOnFile(QV_SOURCE_DIR "/hosts/ahci-desktop.json", {"watch", "--then", File()}));
    ExpectHarmless(RunOnFile(All(), {"watch", "--count", "1", "--then", All()}));
}

TEST_F(HostileTextsTest, StayWholeInJson) {
    const json disks = json::parse(Run({"disks", "--format", "json"}).output)["disks"];
    EXPECT_EQ(disks[0]["model"], longHostile);
    const json objects =
        json::parse(Run({"enumerate", "QV_SATADiskDrive", "--format", "json"}).output)["objects"];
    EXPECT_EQ(objects[0]["Model"], longHostile);
}

TEST_F(HostileTextsTest, AreTextInAReport) {
    const TemporaryFile page;
    EXPECT_EQ(Run({"report", "-o", page.Path().string()}).exitCode, 0);
    std::ostringstream text;
    text << std::ifstream(page.Path()).rdbuf();
    EXPECT_THAT(text.str(),
                AllOf(HasSubstr("Evil\\x1b[2J\\x0d\\x0aforged: OK\\u202e\\x85\\ue0041&lt;b&gt;&amp;"
                                "amp;&quot;\\x07"),
                      Not(HasSubstr("\x1B")), Not(HasSubstr("<b>&")), Not(HasSubstr("\u202E")),
                      Not(HasSubstr("\U000E0041")), Not(HasSubstr(std::string(600, 'x')))));
}

}  // namespace
}  // namespace qv::test
