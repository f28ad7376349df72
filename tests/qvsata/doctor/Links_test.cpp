// The judgement on each link, for facts of which one at a time is broken.
#include "qvsata/doctor/Links.h"

#include <gmock/gmock.h>

#include <functional>

#include "qvsata/doctor/Report.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::test {
namespace {

using namespace doctor;
using testing::ElementsAre;
using testing::IsEmpty;

/// A machine on which everything is as it should be.
Facts Healthy() {
    Facts facts;
    facts.toolVersion = "1.0.0";
    facts.classes = {{"instance provider", "{I}", R"(C:\q\Q.dll)", "Both"},
                     {"event provider", "{E}", R"(C:\q\Q.dll)", "Both"}};
    facts.library = LibraryFacts{
        R"(C:\q\Q.dll)",
        R"(C:\q)",
        true,
        std::uint16_t{0x8664},
        "",
        "1.0.0",
        std::vector<Right>{{"Administrators", true, 0x1F01FF}, {"Users", false, 0x1200A9}}};
    facts.namespaceRights =
        std::vector<Right>{{"Administrators", true, 0x6003F}, {"Users", false, 0x20001}};
    facts.classGaps = facts.unreadSources = facts.wrongSettings = facts.differences =
        std::vector<std::string>();
    facts.providers = std::vector<ProviderFacts>{{"I", true, true, "", "N", "N"}};
    facts.logs = std::vector<LogFacts>{{"C:\\l\\Q.log", "", "", {}}};
    return facts;
}

LibraryFacts& Library(Facts& facts) {
    return std::get<LibraryFacts>(facts.library);
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
    Breakage{"OldVersion", [](Facts& facts) { Library(facts).version = "0.9.0"; },
             "library version: the library has version 0.9.0, this program 1.0.0 -> qvsata "
             "register"},
    Breakage{"WritableFolder",
             [](Facts& facts) {
                 Library(facts).rights = std::vector<Right>{{"Everyone", false, 0x1F01FF}};
             },
             "library folder: others than administrators can change C:\\q, and so run code as the "
             "system: Everyone -> icacls \"C:\\q\" /inheritance:r /grant:r *S-1-5-18:(OI)(CI)F "
             "*S-1-5-32-544:(OI)(CI)F *S-1-5-32-545:(OI)(CI)RX"},
    Breakage{"OpenNamespace",
             [](Facts& facts) {
                 facts.namespaceRights = std::vector<Right>{{"Everyone", false, 0x13}};
             },
             "namespace rights: others than administrators can write to root\\QVQ: Everyone -> "
             "qvsata register"},
    Breakage{"ClosedNamespace",
             [](Facts& facts) {
                 facts.namespaceRights = std::vector<Right>{{"A", true, 0x6003F}};
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
    Breakage{
        "UnreadSource",
        [](Facts& facts) { facts.unreadSources = std::vector<std::string>{"root\\wmi X: denied"}; },
        "sources, this account: root\\wmi X: denied -> qvsata sources --live"},
    Breakage{"WrongSetting",
             [](Facts& facts) { facts.wrongSettings = std::vector<std::string>{"LogLevel is 9"}; },
             "log settings: LogLevel is 9 -> reg add HKLM\\SOFTWARE\\Corvane\\WBEM /f /v LogLevel "
             "/t REG_DWORD /d 3 & reg add HKLM\\SOFTWARE\\Corvane\\WBEM /f /v LogMaxSize /t "
             "REG_DWORD /d 2097152"},
    Breakage{"UnwritableLog",
             [](Facts& facts) {
                 facts.logs = std::vector<LogFacts>{{"Q.log", "KEY /v NAME", "error 5", {}}};
             },
             "log files: Q.log cannot be written: error 5 -> reg delete /f KEY /v NAME"},
    Breakage{"Trouble",
             [](Facts& facts) {
                 facts.logs = std::vector<LogFacts>{{"Q.log", "", "", {"a", "b"}}};
             },
             "trouble in the logs: Q.log: b -> type \"Q.log\""},
    Breakage{"OtherAnswers",
             [](Facts& facts) { facts.differences = std::vector<std::string>{"QV_X: none"}; },
             "installed answers: QV_X: none -> net stop winmgmt /y & net start winmgmt"},
};

INSTANTIATE_TEST_SUITE_P(Each, BrokenLink, testing::ValuesIn(breakages),
                         [](const auto& breakage) { return std::string(breakage.param.name); });

TEST(Links, ThatNeedABrokenOneAreNotChecked) {
    Facts facts = Healthy();
    Library(facts) = {R"(C:\q\Q.dll)", R"(C:\q)", false, {}, "", "", Unknown{"no folder"}};
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
