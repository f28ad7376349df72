// qvsata doctor on a registered library, of which one link at a time is broken. The prefix has no
// namespace of the provider, and its folders are the user's: these two are problems in each test.
#include <cstdlib>
#include <functional>

#include "nlohmann/json.hpp"
#include "tests/qvsata/registration/windows/RegisteredTest.h"

namespace qv::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

/// The links that doctor finds to be problems, except the two.
std::vector<std::string> Problems() {
    const ToolRun run = RunTool({"doctor", "--format", "json"});
    EXPECT_EQ(run.exitCode, 4U);
    EXPECT_EQ(run.errors, "");
    std::vector<std::string> names;
    const auto document = nlohmann::json::parse(run.output);
    for (const auto& link : document["links"]) {
        const std::string name = link["name"];
        if (link["state"] == "problem" && name != "namespace" && name != "library folder") {
            names.push_back(name);
        }
    }
    return names;
}

/// Runs the command that mends a problem.
void Mend(const std::string& name) {
    const auto document = nlohmann::json::parse(RunTool({"doctor", "--format", "json"}).output);
    for (const auto& link : document["links"]) {
        if (link["name"] != name) {
            continue;
        }
        const std::string mend = link["mend"];
        if (mend.starts_with("qvsata ")) {
            EXPECT_EQ(RunTool({mend.substr(mend.find(' ') + 1)}).exitCode, 0U) << mend;
        } else {
            EXPECT_EQ(std::system((mend + " >nul").c_str()), 0) << mend;
        }
    }
}

void SetText(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

/// Makes both classes name a file.
void NameLibrary(const std::filesystem::path& file) {
    SetText(instanceClass + L"\\InprocServer32", nullptr, file.native());
    SetText(eventClass + L"\\InprocServer32", nullptr, file.native());
}

/// Makes both classes name a file that begins as a library does, and has nothing else. The machine
/// is a number of its PE header, low byte first.
void NameEmptyLibrary(const std::filesystem::path& file, std::string_view machine) {
    std::string bytes(512, '\0');
    bytes.replace(0, 2, "MZ");
    bytes[0x3C] = 64;
    bytes.replace(64, 2, "PE").replace(68, 2, machine);
    std::ofstream(file, std::ios::binary) << bytes;
    NameLibrary(file);
}

/// How a registration breaks, in a folder for files.
struct BrokenRegistration {
    const char* name;
    std::function<void(const std::filesystem::path& folder)> breakIt;
    std::vector<std::string> problems;
};

class BrokenMachine : public RegisteredTest,
                      public testing::WithParamInterface<BrokenRegistration> {};

TEST_P(BrokenMachine, IsFoundAndMendedByTheNamedCommand) {
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    GetParam().breakIt(folder_.Path());
    EXPECT_EQ(Problems(), GetParam().problems);
    Mend(GetParam().problems.front());
    EXPECT_THAT(Problems(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Each, BrokenMachine,
    testing::Values(BrokenRegistration{"KeyOfAClass",
                                       [](const auto&) {
                                           RegDeleteTreeW(HKEY_LOCAL_MACHINE, eventClass.c_str());
                                       },
                                       {"registered classes"}},
                    BrokenRegistration{"ThreadingModel",
                                       [](const auto&) {
                                           SetText(instanceClass + L"\\InprocServer32",
                                                   L"ThreadingModel", L"Apartment");
                                       },
                                       {"threading model"}},
                    BrokenRegistration{"MissingFile",
                                       [](const auto& folder) { NameLibrary(folder / "none.dll"); },
                                       {"library file"}},
                    BrokenRegistration{"NoLibrary",
                                       [](const auto& folder) {
                                           std::ofstream(folder / "text.dll") << "no library";
                                           NameLibrary(folder / "text.dll");
                                       },
                                       {"library for 64 bits"}},
                    BrokenRegistration{"LibraryOf32Bits",
                                       [](const auto& folder) {
                                           NameEmptyLibrary(folder / "old.dll", "\x4C\x01");
                                       },
                                       {"library for 64 bits"}},
                    BrokenRegistration{"LibraryThatDoesNotLoad",
                                       [](const auto& folder) {
                                           NameEmptyLibrary(folder / "bad.dll", "\x64\x86");
                                       },
                                       {"library loads", "library version"}},
                    BrokenRegistration{"TwoLibraries",
                                       [](const auto& folder) {
                                           SetText(eventClass + L"\\InprocServer32", nullptr,
                                                   (folder / "other.dll").native());
                                       },
                                       {"registered classes"}}),
    [](const auto& breakage) { return std::string(breakage.param.name); });

class LoggingMachine : public RegisteredTest {
protected:
    static constexpr const wchar_t* settings = L"SOFTWARE\\Corvane\\WBEM";

    void TearDown() override {
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, settings);
        RegisteredTest::TearDown();
    }
};

TEST_F(LoggingMachine, HasASettingOutOfRange) {
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    const DWORD level = 9;
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, settings, L"LogLevel", REG_DWORD, &level, sizeof(level));
    EXPECT_THAT(Problems(), ElementsAre("log settings"));
    Mend("log settings");
    EXPECT_THAT(Problems(), testing::IsEmpty());
}

TEST_F(LoggingMachine, HasTheLevelOfTheModuleAlone) {
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    const DWORD level = 1;
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, settings, L"LogLevel (QVWMISATA)", REG_DWORD, &level,
                    sizeof(level));
    EXPECT_THAT(Problems(), ElementsAre("log settings"));
    Mend("log settings");
    EXPECT_THAT(Problems(), testing::IsEmpty());
}

TEST_F(LoggingMachine, HasALegacyLevelThatIsText) {
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    SetText(std::wstring(settings) + L"\\ServerLOGGING", L"LEVEL", L"2");
    EXPECT_THAT(Problems(), ElementsAre("log settings"));
    Mend("log settings");
    EXPECT_THAT(Problems(), testing::IsEmpty());
}

TEST_F(LoggingMachine, HasSettingsOfAnotherType) {
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    const DWORD number = 1;
    RegSetKeyValueW(HKEY_LOCAL_MACHINE, settings, L"LogFolder", REG_DWORD, &number, sizeof(number));
    SetText(settings, L"LogMaxSize (QVWMISATA)", L"1000000");
    const ToolRun run = RunTool({"doctor"});
    EXPECT_THAT(run.output, HasSubstr("LogFolder is 1, not a folder"));
    EXPECT_THAT(run.output, HasSubstr(R"(LogMaxSize (QVWMISATA) is "1000000", not a number)"));
}

TEST_F(LoggingMachine, LacksTheFolderOfItsLogs) {
    ASSERT_EQ(RunTool({"register"}).exitCode, 0U);
    SetText(std::wstring(settings) + L"\\ServerLOGGING", L"LOGFILENAME", L"C:\\none\\shared.log");
    EXPECT_THAT(Problems(), ElementsAre("log files, this account"));
    Mend("log files, this account");
    EXPECT_THAT(Problems(), testing::IsEmpty());
}

}  // namespace
}  // namespace qv::test
