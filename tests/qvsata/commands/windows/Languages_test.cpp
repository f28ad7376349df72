// Recordings of machines in other languages: texts that the tool shows and finds.
#include <gmock/gmock.h>

#include <fstream>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/windows/RunTool.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

struct Language {
    std::string name;        ///< of the recording and of the test
    std::string computer;    ///< as its references name it
    std::string hostName;    ///< fully qualified
    std::string controller;  ///< the caption of the controller
    std::string disk;        ///< the description of each of the two disks
    std::string beginning;   ///< of that description
    std::string partition;   ///< of the second disk
};

void PrintTo(const Language& language, std::ostream* stream) {
    *stream << language.name;
}

class Languages : public testing::TestWithParam<Language> {
protected:
    static std::string Recording() {
        return SourceFile("tests/hosts/languages/" + GetParam().name + ".json");
    }

    static std::string Print(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--host", Recording()});
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.exitCode, 0U) << run.errors;
        return run.output;
    }

    static json Ask(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--format", "json"});
        return json::parse(Print(std::move(arguments)))["objects"];
    }

    /// Returns a property of each object.
    static std::vector<json> Values(const json& objects, const char* name) {
        std::vector<json> values;
        for (const json& object : objects) {
            values.push_back(object.at(name));
        }
        return values;
    }

    /// Returns a property of each recorded row of a class.
    static std::vector<json> Recorded(const char* className, const char* name) {
        std::ifstream file(Recording());
        return Values(json::parse(file)["namespaces"]["root\\CIMv2"][className], name);
    }

    const Language& language = GetParam();
};

TEST_P(Languages, StandInTheTopology) {
    const std::string tree = Print({"topology"});
    EXPECT_THAT(tree, HasSubstr(language.hostName));
    EXPECT_THAT(tree, HasSubstr(language.controller));
}

TEST_P(Languages, StandInEveryFormat) {
    const std::vector<std::string> disks{"enumerate", "QV_SATADiskDrive", "--format"};
    const std::string text = "\"" + language.disk + "\"";
    EXPECT_THAT(Print({"enumerate", "QV_SATADiskDrive"}), HasSubstr("= " + language.disk + "\n"));
    EXPECT_THAT(Print({"enumerate", "QV_SATADiskDrive", "--format", "json"}),
                HasSubstr("\"Description\": " + text));
    EXPECT_THAT(Print({"enumerate", "QV_SATADiskDrive", "--format", "mof"}),
                HasSubstr("    Description = " + text + ";\n"));
}

TEST_P(Languages, ArePublishedAsTheyWereRecorded) {
    const json disks = Ask({"enumerate", "QV_SATADiskDrive"});
    EXPECT_EQ(Values(disks, "Description"), Recorded("Win32_DiskDrive", "Description"));
    EXPECT_EQ(Values(disks, "Description"), std::vector<json>(2, language.disk));
    EXPECT_THAT(Recorded("Win32_IDEController", "Caption"),
                Contains(Ask({"enumerate", "QV_SATAPortController"})[0]["Caption"]));
    EXPECT_THAT(Recorded("Win32_DiskPartition", "Name"),
                Contains(Ask({"enumerate", "QV_SATAStorageExtent"})[1]["Name"]));
    EXPECT_EQ(Ask({"enumerate", "QV_SATAStorageExtent"})[1]["Name"], language.partition);
    EXPECT_THAT(Values(disks, "SystemName"), ElementsAre(language.hostName, language.hostName));
}

TEST_P(Languages, AreFoundInAPath) {
    const json locations = Ask({"enumerate", "QV_SATAControllerLocation"});
    ASSERT_EQ(locations.size(), 1U);
    EXPECT_THAT(locations[0]["__RELPATH"].get<std::string>(), HasSubstr(language.controller));
    EXPECT_EQ(Ask({"get", locations[0]["__RELPATH"]}), locations);
    const json disks = Ask({"enumerate", "QV_SATADiskDrive"});
    EXPECT_THAT(disks[1]["__RELPATH"].get<std::string>(), HasSubstr(language.hostName));
    EXPECT_EQ(Ask({"get", disks[1]["__RELPATH"]}), json::array({disks[1]}));
}

TEST_P(Languages, AreFoundInReferences) {
    const std::string system = Ask({"enumerate", "QV_WinComputerSystem"})[0]["__RELPATH"];
    const json links = Ask({"query", "REFERENCES OF {" + system +
                                         "} WHERE ResultClass=QV_WinComputerSystemSATADiskDrive"});
    EXPECT_THAT(Values(links, "GroupComponent"),
                testing::Each("\\\\" + language.computer + "\\root\\QVQ:" + system));
    ASSERT_EQ(links.size(), 2U);
    EXPECT_EQ(Ask({"get", links[0]["__RELPATH"]}), json::array({links[0]}));
    EXPECT_EQ(
        Ask({"query", "ASSOCIATORS OF {" + system + "} WHERE ResultClass=QV_SATADiskDrive"}).size(),
        2U);
}

TEST_P(Languages, AreFoundByQueries) {
    const auto count = [](const std::string& condition) {
        return Ask({"query", "SELECT * FROM QV_SATADiskDrive WHERE Description " + condition})
            .size();
    };
    EXPECT_EQ(count("LIKE '" + language.beginning + "%'"), 2U);
    EXPECT_EQ(count("LIKE '%" + language.beginning + "'"), 0U);
    EXPECT_EQ(count("= '" + language.disk + "'"), 2U);
    EXPECT_EQ(count("= '" + language.beginning + "'"), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Recordings, Languages,
    testing::Values(Language{"japanese", "予算表01", "予算表01.example.org",
                             "標準 AHCI 1.0 シリアル ATA コントローラー", "ディスク ドライブ",
                             "ディスク", "ディスク #1, パーティション #0"},
                    Language{"chinese", "财务部服务器", "财务部服务器.example.org",
                             "标准 SATA AHCI 控制器", "磁盘驱动器", "磁盘", "磁盘 #1，分区 #0"},
                    Language{"russian", "БУХГАЛТЕРИЯ", "бухгалтерия.example.org",
                             "Стандартный двухканальный контроллер PCI IDE", "Дисковый накопитель",
                             "Диск", "Диск #1, раздел #0"}),
    [](const auto& one) { return one.param.name; });

}  // namespace
}  // namespace qv::test
