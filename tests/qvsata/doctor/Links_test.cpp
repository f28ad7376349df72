// The judgement on each link, for facts of which one at a time is broken.
#include "qvsata/doctor/Links.h"

#include <gmock/gmock.h>

#include <functional>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/doctor/Report.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::test {
namespace {

using namespace doctor;
using testing::ElementsAre;
using testing::IsEmpty;

/// The rights on what administrators installed.
std::vector<Right> Guarded() {
    return {{"Administrators", true, 0x1F01FF, "S-1-5-32-544"},
            {"Users", false, 0x1200A9, "S-1-5-32-545"}};
}

/// The same, owned by a user, who may change them therefore.
std::vector<Right> OwnedByAnn() {
    std::vector<Right> rights = Guarded();
    rights.push_back({"Ann", false, 0x40000, "S-1-5-21-1", true});
    return rights;
}

/// The rights on a drive's root: authenticated users may add folders.
std::vector<Right> OnADrive() {
    std::vector<Right> rights = Guarded();
    rights.push_back({"Authenticated Users", false, 0x4, "S-1-5-11"});
    return rights;
}

/// Guarded, after an entry that denies something.
std::vector<Right> Denying(const Right& denied) {
    std::vector<Right> rights = Guarded();
    rights.insert(rights.begin(), denied)->isDenied = true;
    return rights;
}

/// A machine on which everything is as it should be.
Facts Healthy() {
    Facts facts;
    facts.toolVersion = "1.0.0";
    facts.classes = {{"instance provider", "{I}", R"(C:\q\Q.dll)", "Both"},
                     {"event provider", "{E}", R"(C:\q\Q.dll)", "Both"}};
    facts.library = LibraryFacts{R"(C:\q\Q.dll)",
                                 false,
                                 true,
                                 std::uint16_t{0x8664},
                                 "",
                                 "1.0.0",
                                 "",
                                 {R"(C:\q)", Guarded()},
                                 {{R"(C:\q\Q.dll)", Guarded()}, {R"(C:\q\q.mof)", Guarded()}},
                                 {{R"(C:\)", OnADrive()}}};
    facts.namespaceRights = std::vector<Right>{{"Administrators", true, 0x6003F, "S-1-5-32-544"},
                                               {"Users", false, 0x20001, "S-1-5-32-545"}};
    facts.classGaps = std::vector<std::string>();
    facts.unreadSources = std::vector<UnreadSource>();
    facts.providers = std::vector<ProviderFacts>{{"I", false, true, true, "", "N", "N"}};
    facts.settings = std::vector<SettingFacts>();
    facts.answers = AnswerFacts();
    facts.logs = std::vector<LogFacts>{{"C:\\l\\Q.log", "", "C:\\l", 0, "", {}}};
    return facts;
}

LibraryFacts& Library(Facts& facts) {
    return std::get<LibraryFacts>(facts.library);
}

AnswerFacts& Answers(Facts& facts) {
    return std::get<AnswerFacts>(facts.answers);
}

LogFacts& Log(Facts& facts) {
    return std::get<std::vector<LogFacts>>(facts.logs).front();
}

/// The settings of the logs with one value.
std::vector<SettingFacts> Setting(const char* name, decltype(SettingFacts::value) value) {
    return {{name, std::move(value)}};
}

ProviderFacts& Provider(Facts& facts) {
    return std::get<std::vector<ProviderFacts>>(facts.providers).front();
}

/// The links that are neither OK nor uncheckable: "NAME (state): text -> mend".
std::vector<std::string> Troubles(const Facts& facts) {
    std::vector<std::string> troubles;
    for (const Link& link : JudgeLinks(facts)) {
        const Finding& finding = link.finding;
        if (finding.state != State::ok && finding.state != State::uncheckable) {
            troubles.push_back(std::string(link.name) + ": " + finding.text + " -> " +
                               finding.mend);
        }
    }
    return troubles;
}

TEST(Links, OfAHealthyMachineAreAllOk) {
    EXPECT_THAT(Troubles(Healthy()), IsEmpty());
    EXPECT_EQ(WorstOf(JudgeLinks(Healthy())), State::ok);
}

TEST(Links, AreNotCheckedWithoutAnyFact) {
    Facts facts;
    facts.classes = Healthy().classes;
    EXPECT_EQ(Troubles(facts).size(), 13U);
    EXPECT_EQ(WorstOf(JudgeLinks(facts)), State::notChecked);
}

struct Breakage {
    const char* name;
    std::function<void(Facts&)> breakOne;
    const char* trouble;
};

class BrokenLink : public testing::TestWithParam<Breakage> {};

TEST_P(BrokenLink, IsTheOnlyOneThatIsFound) {
    Facts facts = Healthy();
    GetParam().breakOne(facts);
    EXPECT_THAT(Troubles(facts), ElementsAre(GetParam().trouble));
}

const std::array breakages{
    Breakage{"UnregisteredClass", [](Facts& facts) { facts.classes[1].library.reset(); },
             "registered classes: the class {E} of the event provider is not registered -> "
             "qvsata register"},
    Breakage{"TwoFiles", [](Facts& facts) { facts.classes[1].library = "D:\\Q.dll"; },
             "registered classes: the event provider is registered with another file, D:\\Q.dll "
             "-> qvsata register"},
    Breakage{"Apartment", [](Facts& facts) { facts.classes[0].threadingModel = "Apartment"; },
             "threading model: the threading model of the instance provider is Apartment, not Both "
             "-> qvsata register"},
    Breakage{"NoThreadingModel", [](Facts& facts) { facts.classes[1].threadingModel.reset(); },
             "threading model: the threading model of the event provider is missing, not Both -> "
             "qvsata register"},
    Breakage{"NotLoaded", [](Facts& facts) { Library(facts).whyNotLoaded = "Q.dll: error 126"; },
             "library loads: Q.dll: error 126 -> qvsata register"},
    Breakage{"NotLoadedFromTheToolsFolder",
             [](Facts& facts) {
                 Library(facts).isBesideProgram = true;
                 Library(facts).whyNotLoaded = "Q.dll: error 193";
             },
             "library loads: Q.dll: error 193; unpack qvwmisata_1.0.0_windows.zip again -> "},
    Breakage{"NotLoadedFromTheFolderOfTheMsi",
             [](Facts& facts) {
                 Library(facts).isBesideProgram = true;
                 Library(facts).product = "{P}";
                 Library(facts).whyNotLoaded = "Q.dll: error 193";
             },
             "library loads: Q.dll: error 193 -> msiexec /i {P} REINSTALL=ALL REINSTALLMODE=amus"},
    Breakage{"OldVersion", [](Facts& facts) { Library(facts).version = "0.9.0"; },
             "library version: the library has version 0.9.0, this program 1.0.0 -> qvsata "
             "register"},
    Breakage{"WritableFolder",
             [](Facts& facts) {
                 Library(facts).folder.rights =
                     std::vector<Right>{{"Everyone", false, 0x1F01FF, "S-1-1-0"}};
             },
             "library folder: others than administrators can change C:\\q, and so run code as the "
             "system: Everyone -> icacls \"C:\\q\" /inheritance:r /grant:r *S-1-5-18:(OI)(CI)F "
             "*S-1-5-32-544:(OI)(CI)F *S-1-5-32-545:(OI)(CI)RX /remove:g *S-1-1-0"},
    Breakage{"FolderThatUsersWrite",
             [](Facts& facts) {
                 Library(facts).folder.rights =
                     std::vector<Right>{{"Users", false, 0x1301BF, "S-1-5-32-545"},
                                        {"Authors", false, 0x2, "S-1-5-21-1"},
                                        {"Guests", false, 0x4, "S-1-5-32-546"}};
             },
             "library folder: others than administrators can change C:\\q, and so run code as the "
             "system: Users, Authors, Guests -> icacls \"C:\\q\" /inheritance:r /grant:r "
             "*S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F *S-1-5-32-545:(OI)(CI)RX /remove:g "
             "*S-1-5-21-1 *S-1-5-32-546"},
    Breakage{"ClosedFolder",
             [](Facts& facts) {
                 Library(facts).folder.rights =
                     std::vector<Right>{{"Administrators", true, 0x1F01FF, "S-1-5-32-544"},
                                        {"Ann", false, 0x1200A9, "S-1-5-21-1"},
                                        {"Everyone", false, 0x20, "S-1-1-0"}};
             },
             "library folder: NETWORK SERVICE cannot read C:\\q -> icacls \"C:\\q\" "
             "/inheritance:r /grant:r *S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F "
             "*S-1-5-32-545:(OI)(CI)RX"},
    Breakage{"FolderOfAUser", [](Facts& facts) { Library(facts).folder.rights = OwnedByAnn(); },
             "library folder: others than administrators can change C:\\q, and so run code as the "
             "system: Ann (owner) -> takeown /f \"C:\\q\" /a & icacls \"C:\\q\" "
             "/inheritance:r /grant:r *S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F "
             "*S-1-5-32-545:(OI)(CI)RX"},
    Breakage{"LibraryOfAUser", [](Facts& facts) { Library(facts).files[0].rights = OwnedByAnn(); },
             "library folder: others than administrators can change C:\\q\\Q.dll, and so run code "
             "as the system: Ann (owner) -> takeown /f \"C:\\q\\Q.dll\" /a & "
             "icacls \"C:\\q\\Q.dll\" /reset"},
    Breakage{"WritableLibrary",
             [](Facts& facts) {
                 Library(facts).files[0].rights =
                     std::vector<Right>{{"Users", false, 0x1201BF, "S-1-5-32-545"}};
             },
             "library folder: others than administrators can change C:\\q\\Q.dll, and so run code "
             "as the system: Users -> icacls \"C:\\q\\Q.dll\" /reset"},
    Breakage{"ClosedLibrary",
             [](Facts& facts) {
                 Library(facts).files[0].rights =
                     std::vector<Right>{{"Administrators", true, 0x1F01FF, "S-1-5-32-544"}};
             },
             "library folder: NETWORK SERVICE cannot read C:\\q\\Q.dll -> icacls "
             "\"C:\\q\\Q.dll\" /reset"},
    Breakage{
        "FolderDeniedToItsHost",
        [](Facts& facts) {
            Library(facts).folder.rights = Denying({"NETWORK SERVICE", false, 0x20, "S-1-5-20"});
        },
        "library folder: NETWORK SERVICE cannot read C:\\q -> icacls \"C:\\q\" "
        "/inheritance:r /grant:r *S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F "
        "*S-1-5-32-545:(OI)(CI)RX & icacls \"C:\\q\" /remove:d *S-1-5-20"},
    Breakage{"FolderDeniedToUsersToWriteOnly",
             [](Facts& facts) {
                 std::vector<Right> rights = Denying({"Users", false, 0x4, "S-1-5-32-545"});
                 rights.push_back({"Users", false, 0x6, "S-1-5-32-545"});
                 Library(facts).folder.rights = rights;
             },
             "library folder: others than administrators can change C:\\q, and so run code as the "
             "system: Users -> icacls \"C:\\q\" /inheritance:r /grant:r *S-1-5-18:(OI)(CI)F "
             "*S-1-5-32-544:(OI)(CI)F *S-1-5-32-545:(OI)(CI)RX"},
    Breakage{"DriveOfTheLibrary",
             [](Facts& facts) {
                 Library(facts).folder = {"D:\\", OwnedByAnn()};
             },
             "library folder: others than administrators can change D:\\, and so run code as the "
             "system: Ann (owner) -> "},
    Breakage{"WritableClassDefinitions",
             [](Facts& facts) {
                 Library(facts).files[1].rights =
                     std::vector<Right>{{"Users", false, 0x2, "S-1-5-32-545"}};
             },
             "library folder: others than administrators can change C:\\q\\q.mof, and so run code "
             "as the system: Users -> icacls \"C:\\q\\q.mof\" /reset"},
    Breakage{"FolderAboveThatUsersRename",
             [](Facts& facts) {
                 Library(facts).parents.insert(
                     Library(facts).parents.begin(),
                     {"C:\\t", std::vector<Right>{{"Users", false, 0x10000, "S-1-5-32-545"}}});
             },
             "library folder: others than administrators can rename or replace what is in C:\\t, "
             "and so run code as the system: Users; install under Program Files instead -> "},
    Breakage{"NoNamespace",
             [](Facts& facts) { facts.connection = service::status::invalidNamespace; },
             "namespace: root\\QVQ cannot be connected to: unknown namespace (0x8004100E) -> "
             "qvsata register"},
    Breakage{"RefusedNamespace",
             [](Facts& facts) { facts.connection = service::status::accessDenied; },
             "namespace: root\\QVQ cannot be connected to: access denied (0x80041003); run as an "
             "administrator -> "},
    Breakage{"RefusedByCom", [](Facts& facts) { facts.connection = Status{0x80070005}; },
             "namespace: root\\QVQ cannot be connected to: access denied (0x80070005); run as an "
             "administrator -> "},
    Breakage{"StoppedService", [](Facts& facts) { facts.connection = Status{0x800706BA}; },
             "namespace: root\\QVQ cannot be connected to: the service does not run (0x800706BA) "
             "-> net start winmgmt"},
    Breakage{"DisabledService", [](Facts& facts) { facts.connection = Status{0x80070422}; },
             "namespace: root\\QVQ cannot be connected to: 0x80070422 -> sc config winmgmt start= "
             "auto & net start winmgmt"},
    Breakage{"OpenNamespace",
             [](Facts& facts) {
                 facts.namespaceRights = std::vector<Right>{{"Everyone", false, 0x13, "S-1-1-0"}};
             },
             "namespace rights: others than administrators can write to root\\QVQ: Everyone -> "
             "qvsata register"},
    Breakage{"ClosedNamespace",
             [](Facts& facts) {
                 facts.namespaceRights = std::vector<Right>{{"A", true, 0x6003F, "S-1-5-18"}};
             },
             "namespace rights: nobody but administrators can read root\\QVQ -> qvsata register"},
    Breakage{"NamespaceDeniedToItsReaders",
             [](Facts& facts) {
                 facts.namespaceRights =
                     std::vector<Right>{{"Users", false, 0x1, "S-1-5-32-545", false, true},
                                        {"Users", false, 0x20001, "S-1-5-32-545"}};
             },
             "namespace rights: nobody but administrators can read root\\QVQ -> qvsata register"},
    Breakage{"MissingClass",
             [](Facts& facts) {
                 facts.classGaps = std::vector<std::string>{"A: not found", "B.C is missing"};
             },
             "class definitions: 2 findings, the first: A: not found -> qvsata register"},
    Breakage{"NoProvider", [](Facts& facts) { Provider(facts).exists = false; },
             "provider registrations: I is not registered with the management service -> qvsata "
             "register"},
    Breakage{"NoInstances", [](Facts& facts) { Provider(facts).hasRegistration = false; },
             "provider registrations: I is not registered with the management service -> qvsata "
             "register"},
    Breakage{"OtherClassId",
             [](Facts& facts) { Provider(facts).wrongProperty = "CLSID is not as shipped"; },
             "provider registrations: I: CLSID is not as shipped -> qvsata register"},
    Breakage{"OtherAccount", [](Facts& facts) { Provider(facts).hostingModel = "L"; },
             "provider registrations: I runs as L, not as N -> qvsata register"},
    Breakage{"EventsUnderAnotherAccount",
             [](Facts& facts) {
                 Provider(facts) = {
                     "E", true, true, true, "", "NetworkServiceHost:Q", "LocalSystemHost:Q"};
             },
             "provider registrations: E runs as NetworkServiceHost:Q, not as LocalSystemHost:Q; it "
             "raises no event unless that account may read failure predictions -> qvsata register"},
    Breakage{"EventsInAnotherProcess",
             [](Facts& facts) {
                 Provider(facts) = {
                     "E", true, true, true, "", "LocalSystemHost", "LocalSystemHost:Q"};
             },
             "provider registrations: E runs as LocalSystemHost, not as LocalSystemHost:Q -> "
             "qvsata register"},
    Breakage{"UnreadSource",
             [](Facts& facts) {
                 facts.unreadSources =
                     std::vector<UnreadSource>{{"X: access denied", Status{0x80041003}},
                                               {"Y: not supported", service::status::notSupported}};
             },
             "sources, this account: Y: not supported -> qvsata sources --live"},
    Breakage{"RefusedSource",
             [](Facts& facts) {
                 facts.unreadSources = std::vector<UnreadSource>{
                     {"P: not supported", service::status::notSupported, true},
                     {"X: access denied", Status{0x80041003}}};
             },
             "sources, this account: X: access denied; run as an administrator -> "},
    Breakage{"NoDriverThatPredictsFailures",
             [](Facts& facts) {
                 facts.unreadSources = std::vector<UnreadSource>{
                     {"P: not supported", service::status::notSupported, true}};
             },
             "sources, this account: P: not supported -> "},
    Breakage{"LevelOutOfRange",
             [](Facts& facts) { facts.settings = Setting("LogLevel (QVWMISATA)", 6U); },
             "log settings: LogLevel (QVWMISATA) is 6, not a number from 1 to 5 (REG_DWORD) -> reg "
             "delete HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogLevel (QVWMISATA)\" /f"},
    Breakage{"LevelThatIsText", [](Facts& facts) { facts.settings = Setting("LogLevel", "3"); },
             "log settings: LogLevel is \"3\", not a number from 1 to 5 (REG_DWORD) -> reg delete "
             "HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogLevel\" /f"},
    Breakage{"SizeOutOfRange",
             [](Facts& facts) { facts.settings = Setting("LogMaxSize", 524287U); },
             "log settings: LogMaxSize is 524287, not a number from 524288 to 33554432 (REG_DWORD) "
             "-> reg delete HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogMaxSize\" /f"},
    Breakage{
        "LevelOfTheModuleAlone",
        [](Facts& facts) { facts.settings = Setting("LogLevel (QVWMISATA)", 1U); },
        "log settings: LogLevel (QVWMISATA) has no effect: LogLevel is not set to a number in "
        "its range -> reg add HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogLevel\" /t REG_DWORD /d 3 /f"},
    Breakage{"SizeOfTheModuleAlone",
             [](Facts& facts) {
                 facts.settings = std::vector<SettingFacts>{{"LogMaxSize", 1U},
                                                            {"LogMaxSize (QVWMISATA)", 524288U}};
             },
             "log settings: LogMaxSize is 1, not a number from 524288 to 33554432 (REG_DWORD); "
             "LogMaxSize (QVWMISATA) has no effect: LogMaxSize is not set to a number in its range "
             "-> reg delete HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogMaxSize\" /f & reg add "
             "HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogMaxSize\" /t REG_DWORD /d 2097152 /f"},
    Breakage{"FolderThatIsNoText", [](Facts& facts) { facts.settings = Setting("LogFolder", {}); },
             "log settings: LogFolder is of another type, not a folder (REG_SZ) -> reg delete "
             "HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogFolder\" /f"},
    Breakage{"TwoSettings",
             [](Facts& facts) {
                 facts.settings = std::vector<SettingFacts>{{"LogFolder", ""}, {"LogLevel", 0U}};
             },
             "log settings: LogFolder is \"\", not a folder (REG_SZ); LogLevel is 0, not a number "
             "from 1 to 5 (REG_DWORD) -> reg delete HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogFolder\" "
             "/f & reg delete HKLM\\SOFTWARE\\Corvane\\WBEM /v \"LogLevel\" /f"},
    Breakage{"LegacyLevelThatIsText", [](Facts& facts) { facts.settings = Setting("LEVEL", "2"); },
             "log settings: LEVEL is \"2\", not a number from 0 to 4294967295 (REG_DWORD) -> reg "
             "delete HKLM\\SOFTWARE\\Corvane\\WBEM\\ServerLOGGING /v \"LEVEL\" /f"},
    Breakage{"LegacyFileThatIsANumber",
             [](Facts& facts) { facts.settings = Setting("LOGFILENAME", 1U); },
             "log settings: LOGFILENAME is 1, not a file (REG_SZ) -> reg delete "
             "HKLM\\SOFTWARE\\Corvane\\WBEM\\ServerLOGGING /v \"LOGFILENAME\" /f"},
    Breakage{"UnwritableLog",
             [](Facts& facts) { Log(facts) = {"Q.log", "KEY /v NAME", "F", 32, "in use", {}}; },
             "log files, this account: Q.log cannot be written: in use -> reg delete KEY /v NAME "
             "/f"},
    Breakage{"NoFolderOfTheLog",
             [](Facts& facts) { Log(facts) = {"F\\Q.log", "", "F", 3, "no path", {}}; },
             "log files, this account: F\\Q.log cannot be written: no path -> md \"F\""},
    Breakage{
        "RefusedLog",
        [](Facts& facts) { Log(facts) = {"Q.log", "KEY /v NAME", "F", 5, "denied", {}}; },
        "log files, this account: Q.log cannot be written: denied; run as an administrator -> "},
    Breakage{"Trouble",
             [](Facts& facts) {
                 Log(facts) = {"Q.log", "", "", 0, "", {"a", "b"}};
             },
             "trouble in the logs: Q.log: b -> type \"Q.log\""},
    Breakage{"TroubleInBothLogs",
             [](Facts& facts) {
                 facts.logs = std::vector<LogFacts>{{"Q.log", "", "", 0, "", {"a"}},
                                                    {"R.log", "", "", 0, "", {"b"}}};
             },
             "trouble in the logs: Q.log: a; R.log: b -> type \"Q.log\" & type \"R.log\""},
    Breakage{"OtherAnswers", [](Facts& facts) { Answers(facts).differences = {"QV_X: none"}; },
             "installed answers: QV_X: none -> qvsata register && net stop winmgmt /y & net start "
             "winmgmt"},
    Breakage{"UnloadedProvider",
             [](Facts& facts) {
                 Answers(facts) = {false, {"QV_X: none", "QV_Y: not loaded"}, {}};
             },
             "installed answers: 2 findings, the first: QV_X: none -> qvsata register"},
    Breakage{"AnswersThatWereNotCompared",
             [](Facts& facts) { Answers(facts).notCompared = {"QV_X: not compared: E"}; },
             "installed answers: QV_X: not compared: E -> "},
};

INSTANTIATE_TEST_SUITE_P(Each, BrokenLink, testing::ValuesIn(breakages),
                         [](const auto& breakage) { return std::string(breakage.param.name); });

TEST(Links, AreOkWithSettingsInTheirRange) {
    Facts facts = Healthy();
    facts.settings = std::vector<SettingFacts>{{"LogFolder", "C:\\l"},
                                               {"LogLevel", 1U},
                                               {"LogLevel (QVWMISATA)", 5U},
                                               {"LogMaxSize", 524288U},
                                               {"LogMaxSize (QVWMISATA)", 33554432U}};
    EXPECT_THAT(Troubles(facts), IsEmpty());
}

TEST(Links, AreOkIfNetworkServiceCanReadTheFolder) {
    Facts facts = Healthy();
    Library(facts).folder.rights =
        std::vector<Right>{{"NETWORK SERVICE", false, 0x1200A9, "S-1-5-20"}};
    EXPECT_THAT(Troubles(facts), IsEmpty());
}

TEST(Links, ThatTheAccountIsRefusedAreNotChecked) {
    Facts facts = Healthy();
    facts.connection = service::status::accessDenied;
    EXPECT_EQ(WorstOf(JudgeLinks(facts)), State::notChecked);
}

TEST(Links, OfClassesThatWereNotComparedAreNotChecked) {
    Facts facts = Healthy();
    Answers(facts).notCompared = {"QV_X: not compared: E"};
    EXPECT_EQ(WorstOf(JudgeLinks(facts)), State::notChecked);
}

TEST(Links, OfEventsUnderAnotherAccountAreAProblem) {
    Facts facts = Healthy();
    Provider(facts) = {"E", true, true, true, "", "NetworkServiceHost:Q", "LocalSystemHost:Q"};
    EXPECT_EQ(WorstOf(JudgeLinks(facts)), State::problem);
}

TEST(Links, OfInstancesUnderAnotherAccountAreANote) {
    Facts facts = Healthy();
    Provider(facts).hostingModel = "LocalSystemHost:Q";
    EXPECT_EQ(WorstOf(JudgeLinks(facts)), State::ok);
}

TEST(Links, ThatAnEarlierEntryAllowsAreNotDenied) {
    Facts facts = Healthy();
    std::vector<Right> rights = Guarded();
    rights.push_back({"Users", false, 0x20, "S-1-5-32-545", false, true});
    Library(facts).folder.rights = rights;
    EXPECT_THAT(Troubles(facts), IsEmpty());
}

TEST(Links, OfAFolderThatEveryoneIsDeniedToWriteAreOk) {
    Facts facts = Healthy();
    std::vector<Right> rights = Denying({"Everyone", false, 0x2, "S-1-1-0"});
    rights.push_back({"Authors", false, 0x2, "S-1-5-21-1"});
    Library(facts).folder.rights = rights;
    EXPECT_THAT(Troubles(facts), IsEmpty());
}

TEST(Links, ThatNeedABrokenOneAreNotChecked) {
    Facts facts = Healthy();
    Library(facts).exists = false;
    Library(facts).machine.reset();
    Library(facts).folder.rights = Unknown{"no folder"};
    EXPECT_THAT(Troubles(facts),
                ElementsAre("library file: C:\\q\\Q.dll does not exist -> qvsata register",
                            "library for 64 bits: the file does not exist -> ",
                            "library loads: the file is no library for 64 bits -> ",
                            "library version: the file is no library for 64 bits -> ",
                            "library folder: no folder -> "));
    EXPECT_EQ(WorstOf(JudgeLinks(facts)), State::problem);
}

TEST(Links, AreNotCheckedForALibraryOf32Bits) {
    Facts facts = Healthy();
    Library(facts).machine = std::uint16_t{0x14C};
    EXPECT_THAT(Troubles(facts),
                ElementsAre("library for 64 bits: C:\\q\\Q.dll is not for 64-bit Windows (x64) -> "
                            "qvsata register",
                            "library loads: the file is no library for 64 bits -> ",
                            "library version: the file is no library for 64 bits -> "));
}

TEST(Links, OfAnUnregisteredMachineDoNotPassForWhole) {
    Facts facts;
    facts.classes = {{"instance provider", "{I}", {}, {}}, {"event provider", "{E}", {}, {}}};
    const std::vector<Link> links = JudgeLinks(facts);
    EXPECT_EQ(links[0].finding.state, State::problem);
    EXPECT_EQ(links[1].finding.text, "no class is registered");
    EXPECT_EQ(links[1].finding.state, State::notChecked);
}

TEST(Links, AreALineEachWithTheCommandBelow) {
    const std::vector<Link> links{{"short", {}},
                                  {"a longer name", {State::problem, "broken", "mend it"}},
                                  {"hidden", {State::notChecked, "no \x1b", {}}}};
    EXPECT_EQ(view::PlainText(LinksAsText(links)),
              "short          OK\n"
              "a longer name  problem: broken\n"
              "    mend it\n"
              "hidden         not checked: no \\x1b\n");
}

TEST(Links, AreObjectsInJson) {
    const std::vector<Link> links{{"a", {}}, {"b", {State::uncheckable, "why", "mend"}}};
    EXPECT_EQ(LinksAsJson(links).dump(),
              R"({"links":[{"name":"a","state":"OK","text":null,"mend":null},)"
              R"({"name":"b","state":"not checked","text":"why","mend":"mend"}]})");
}

TEST(Links, ThatCannotBeCheckedAreNoTrouble) {
    EXPECT_EQ(WorstOf({{"a", {State::uncheckable, {}, {}}}, {"b", {State::note, {}, {}}}}),
              State::ok);
}

}  // namespace
}  // namespace qv::test
