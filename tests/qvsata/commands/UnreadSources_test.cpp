// What commands print, and how they end, when a source of the machine cannot be read: each source
// class, each way to fail, each kind of command.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <tuple>
#include "nlohmann/json.hpp"

#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

struct Source {
    const char* nameSpace;
    const char* name;
    const char* loss;
};

// An empty failure stands for a class that was never recorded.
struct Failure {
    const char* recorded;
    const char* shown;
};

/// A recording of its own for each test.
class UnreadSourcesTest : public testing::Test {
protected:
    UnreadSourcesTest() {
        std::ifstream(std::filesystem::path(QV_SOURCE_DIR) / "hosts/ahci-desktop.json") >> host_;
    }

    void Spoil(const Source& source, const Failure& failure) {
        json& classes = host_["namespaces"][source.nameSpace];
        if (*failure.recorded == '\0') {
            classes.erase(source.name);
        } else {
            classes[source.name] = {{"fails", failure.recorded}};
        }
    }

    Ending On(std::vector<std::string> command) const {
        std::ofstream(file_.Path()) << host_;
        command.insert(command.end(),
                       {"--host", file_.Path().string(), "--mof", mofFolder_.string()});
        return RunHere(command);
    }

    /// Returns the recording as a file of its own, for --then.
    std::string Twice() const {
        std::ofstream(file_.Path()) << host_;
        return file_.Path().string();
    }

    json host_;

private:
    const std::filesystem::path mofFolder_ = std::filesystem::path(QV_SOURCE_DIR) / "mof";
    const TemporaryFile file_;
};

using Row = std::tuple<Source, Failure, std::vector<std::string>>;

class EachUnreadSource : public UnreadSourcesTest, public testing::WithParamInterface<Row> {};

TEST_P(EachUnreadSource, IsNamedAndNothingIsSaidToBeAbsent) {
    const auto& [source, failure, command] = GetParam();
    Spoil(source, failure);
    const Ending run = On(command);
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors, std::string(source.nameSpace) + " " + source.name + ": " + failure.shown +
                              ": " + source.loss + "\n");
    EXPECT_THAT(run.output, AllOf(Not(HasSubstr("no disks")), Not(HasSubstr("no channels")),
                                  Not(HasSubstr("no IDE")), Not(HasSubstr("(none)"))));
}

constexpr const char* cimv2 = R"(root\CIMv2)";
constexpr const char* software = "drivers, firmware and BIOS of controllers cannot be published";
constexpr const char* partitions = "partitions of storage extents cannot be published";

constexpr const char* computer =
    "QV_WinComputerSystem.CreationClassName='QV_WinComputerSystem',Name='study-desk.example.org'";
constexpr const char* controller =
    "QV_SATAPortController.CreationClassName='QV_SATAPortController',DeviceID='"
    "PCI&VEN_1AF7&DEV_3A22&SUBSYS_82D41043&REV_05&3&2411E6FE&0&FA',"
    "SystemCreationClassName='QV_WinComputerSystem',SystemName='study-desk.example.org'";

const std::vector<Source> storage{
    Source{cimv2, "Win32_DiskDrive", "disks and what belongs to them cannot be published"},
    Source{cimv2, "Win32_PhysicalMedia", "serial numbers of disks cannot be published"},
    Source{cimv2, "Win32_IDEController", "controllers and channels cannot be published"},
    Source{cimv2, "Win32_IDEControllerDevice",
           "where disks and channels are attached cannot be published"},
    Source{cimv2, "Win32_DiskDriveToDiskPartition", partitions},
    Source{cimv2, "Win32_DiskPartition", partitions}};
const std::vector<Source> drivers{Source{cimv2, "Win32_PnPDevice", software},
                                  Source{cimv2, "Win32_PnPEntity", software},
                                  Source{cimv2, "Win32_SystemDriverPNPEntity", software},
                                  Source{cimv2, "Win32_SystemDriver", software}};
const Source predictions{R"(root\wmi)", "MSStorageDriver_FailurePredictStatus",
                         "disks cannot be watched, and predicted failures are not seen"};

std::vector<Source> Joined(const std::vector<std::vector<Source>>& lists) {
    std::vector<Source> all;
    for (const std::vector<Source>& list : lists) {
        all.insert(all.end(), list.begin(), list.end());
    }
    return all;
}

const auto failures = testing::Values(
    Failure{"WBEM_E_ACCESS_DENIED", "WBEM_E_ACCESS_DENIED (0x80041003)"},
    Failure{"WBEM_E_TIMED_OUT", "WBEM_E_TIMED_OUT (0x80041069)"}, Failure{"", "never recorded"});

INSTANTIATE_TEST_SUITE_P(Commands, EachUnreadSource,
                         testing::Combine(testing::ValuesIn(Joined({storage, drivers})), failures,
                                          testing::Values(std::vector<std::string>{"topology"},
                                                          std::vector<std::string>{"classes"},
                                                          std::vector<std::string>{"metrics"},
                                                          std::vector<std::string>{
                                                              "enumerate", "CIM_ManagedElement"})));

// The neighbours of the computer and those of a controller rest on different sources.
INSTANTIATE_TEST_SUITE_P(
    AssociationCommands, EachUnreadSource,
    testing::Combine(testing::ValuesIn(storage), failures,
                     testing::Values(std::vector<std::string>{"associators", computer},
                                     std::vector<std::string>{"references", computer})));

INSTANTIATE_TEST_SUITE_P(
    SoftwareCommands, EachUnreadSource,
    testing::Combine(testing::ValuesIn(drivers), failures,
                     testing::Values(std::vector<std::string>{"associators", controller},
                                     std::vector<std::string>{"references", controller})));

// The disks alone rest on these.
INSTANTIATE_TEST_SUITE_P(
    DiskCommands, EachUnreadSource,
    testing::Combine(testing::Values(storage[0], storage[1], predictions), failures,
                     testing::Values(std::vector<std::string>{"disks"},
                                     std::vector<std::string>{"sources"},
                                     std::vector<std::string>{"metrics"},
                                     std::vector<std::string>{"topology", "--format", "json"})));

class UnreadSourceOfACheck : public UnreadSourcesTest,
                             public testing::WithParamInterface<std::tuple<Source, Failure>> {};

TEST_P(UnreadSourceOfACheck, IsUnknownAndNamedOnStandardOutput) {
    const auto& [source, failure] = GetParam();
    Spoil(source, failure);
    const Ending run = On({"check", "--expect", "3"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output,
                AllOf(StartsWith("SATA UNKNOWN - "),
                      HasSubstr(std::string("not readable: ") + source.name + " | "),
                      EndsWith(" unread=1;;;0\n" + std::string(source.nameSpace) + " " +
                               source.name + ": " + failure.shown + ": " + source.loss + "\n")));
}

INSTANTIATE_TEST_SUITE_P(
    Sources, UnreadSourceOfACheck,
    testing::Combine(testing::ValuesIn(Joined({storage, drivers, {predictions}})), failures));

TEST_F(UnreadSourcesTest, OfACheckLeaveAFailedDiskCritical) {
    host_["namespaces"][cimv2]["Win32_DiskDrive"][1]["Status"] = "Error";
    Spoil({R"(root\wmi)", "MSStorageDriver_FailurePredictStatus", ""}, {"WBEM_E_FAILED", ""});
    const Ending run = On({"check"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.output,
                StartsWith("SATA CRITICAL - disk #1 HALDEN HD2000B72 ATA Device: Error; 3 disks, 3 "
                           "published; not readable: MSStorageDriver_FailurePredictStatus | "
                           "disks=3;;;0 published=3;;;0 unread=1;;;0\n"));
}

class UnreadComputerName : public UnreadSourcesTest {
protected:
    UnreadComputerName() { host_["computer"] = {{"server", "STUDY-DESK"}}; }
};

TEST_F(UnreadComputerName, IsALineAndMakesTheTopologyIncomplete) {
    const Ending run = On({"topology"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors, "the computer's name cannot be read: most instances have no path\n");
}

TEST_F(UnreadComputerName, LeavesEachDiskOnItsChannel) {
    EXPECT_THAT(On({"topology"}).output, HasSubstr("   ├─ channel 4&1F2B6C03&0&0  OK\n"
                                                   "   │  └─ #0  OK  NORTHLAKE"));
    const json channels =
        json::parse(On({"topology", "--format", "json"}).output)["controllers"][0]["channels"];
    EXPECT_EQ(channels[1]["disks"][0]["number"], 1);
    EXPECT_EQ(channels[3]["disks"][0]["number"], 2);
}

class UnreadDisks : public UnreadSourcesTest {
protected:
    UnreadDisks() { Spoil({cimv2, "Win32_DiskDrive", ""}, {"WBEM_E_ACCESS_DENIED", ""}); }
};

TEST_F(UnreadDisks, AreNotReadableInTheTopology) {
    const std::string tree = On({"topology"}).output;
    EXPECT_THAT(tree, HasSubstr("\ndisks not readable\n"));
    EXPECT_THAT(tree, Not(HasSubstr("consolidated")));
}

TEST_F(UnreadDisks, AreNotReadableInTheListOfDisks) {
    const Ending run = On({"disks"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.output, "disks not readable\n");
}

TEST_F(UnreadDisks, AreNamedInEveryJsonDocument) {
    const json unread =
        json::parse(On({"enumerate", "QV_SATADiskDrive", "--format", "json"}).output)["unread"];
    EXPECT_EQ(unread, json::parse(R"json([{"namespace": "root\\CIMv2", "class": "Win32_DiskDrive",
        "status": "WBEM_E_ACCESS_DENIED (0x80041003)",
        "loss": "disks and what belongs to them cannot be published"
}])json"));
}

TEST_F(UnreadDisks, MayHaveTheNumberThatIsAskedFor) {
    const Ending run = On({"get", "--disk", "0"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.errors, StartsWith("qvsata: disk #0: disks not readable\n"));
}

TEST_F(UnreadDisks, AreNamedByAWatch) {
    const Ending run = On({"watch"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.errors, StartsWith("disks not readable\nroot\\CIMv2 Win32_DiskDrive: "));
}

TEST_F(UnreadDisks, AreNotReadableInTheGraph) {
    EXPECT_THAT(On({"topology", "--format", "dot"}).output, HasSubstr("\"disks not readable\""));
}

TEST_F(UnreadDisks, AreNoEmptyAnswer) {
    const Ending run = On({"query", "SELECT * FROM QV_SATADiskDrive"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.output, "(not readable)\n");
}

TEST_F(UnreadDisks, HaveNoCountOfInstances) {
    const json classes = json::parse(On({"classes", "--format", "json"}).output)["classes"];
    EXPECT_TRUE(classes[1]["instances"].is_null());
    EXPECT_EQ(classes[0]["instances"], 1);
}

TEST_F(UnreadDisks, MayBeWhyAPathIsNotFound) {
    const Ending run = On({"get", R"(QV_SATADiskDrive.DeviceID="x")"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.errors, AllOf(StartsWith("qvsata: "), HasSubstr("not found"),
                                  HasSubstr("Win32_DiskDrive: WBEM_E_ACCESS_DENIED")));
}

TEST_F(UnreadDisks, HaveTheirStatusAndLossAmongTheSources) {
    const Ending run = On({"sources"});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.output, AllOf(HasSubstr("WBEM_E_ACCESS_DENIED (0x80041003), access denied\n"),
                                  HasSubstr("\nwithout Win32_DiskDrive: disks and")));
}

TEST_F(UnreadSourcesTest, OfPredictionsLeaveThemUnknown) {
    Spoil({R"(root\wmi)", "MSStorageDriver_FailurePredictStatus", ""}, {"WBEM_E_FAILED", ""});
    EXPECT_THAT(On({"topology"}).output, HasSubstr("; failure predictions not readable\n"));
    EXPECT_THAT(On({"disks"}).output, EndsWith("\nfailure predictions not readable\n"));
    EXPECT_TRUE(
        json::parse(On({"disks", "--format", "json"}).output)["disks"][0]["failurePredicted"]
            .is_null());
}

TEST_F(UnreadSourcesTest, OfMediaLeaveSerialNumbersUnknown) {
    host_["namespaces"][cimv2]["Win32_DiskDrive"][0]["SerialNumber"] = nullptr;
    Spoil({cimv2, "Win32_PhysicalMedia", ""}, {"WBEM_E_ACCESS_DENIED", ""});
    EXPECT_THAT(On({"topology"}).output, HasSubstr("GiB  S/N not readable\n"));
    EXPECT_THAT(On({"disks"}).output, HasSubstr("NL2.07    not readable\n"));
}

TEST_F(UnreadSourcesTest, AreNoneOnACompleteRecording) {
    const Ending run = On({"sources", "--format", "json"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.errors, IsEmpty());
    const json sources = json::parse(run.output)["sources"];
    EXPECT_EQ(sources.size(), 11U);
    EXPECT_EQ(sources[7]["class"], "Win32_PnPEntity");
    EXPECT_GT(sources[7]["rows"], 0);
    EXPECT_EQ(sources[0]["class"], "Win32_DiskDrive");
    EXPECT_EQ(sources[0]["rows"], 3);
    EXPECT_EQ(sources[0]["status"], "OK");
}

TEST_F(UnreadSourcesTest, WithoutAQueryAreNotAskedFor) {
    Spoil({R"(root\wmi)", "MSStorageDriver_FailurePredictStatus", ""}, {"WBEM_E_FAILED", ""});
    EXPECT_EQ(On({"classes"}).exitCode, 0);
}

TEST_F(UnreadSourcesTest, SourcesGiveNoCodeToAClassThatWasNotAsked) {
    Spoil({"root\\CIMv2", "Win32_IDEController", ""}, {"WBEM_E_ACCESS_DENIED", ""});
    const json sources = json::parse(On({"sources", "--format", "json"}).output).at("sources");
    const auto drivers = std::ranges::find_if(
        sources, [](const json& one) { return one.at("class") == "Win32_SystemDriver"; });
    ASSERT_NE(drivers, sources.end());
    EXPECT_EQ(drivers->at("queries"), 0);
    EXPECT_EQ(drivers->at("code"), nullptr);
    EXPECT_EQ(drivers->at("meaning"), nullptr);
}

/// The introduction of a watch asks for the links, its cycles do not.
TEST_F(UnreadSourcesTest, WatchSaysNothingNewOfASourceThatItsCyclesDoNotAsk) {
    Spoil({"root\\CIMv2", "Win32_IDEControllerDevice", ""}, {"WBEM_E_ACCESS_DENIED", ""});
    const Ending watch = On({"watch", "--then", Twice(), "--then", Twice()});
    EXPECT_EQ(watch.exitCode, 3);
    EXPECT_THAT(watch.errors, HasSubstr("Win32_IDEControllerDevice: WBEM_E_ACCESS_DENIED"));
    EXPECT_THAT(watch.errors, Not(HasSubstr("readable again")));
}

TEST_F(UnreadSourcesTest, ExplainOfADiskSaysThatTheDisksAreNotReadable) {
    Spoil({"root\\CIMv2", "Win32_DiskDrive", ""}, {"WBEM_E_ACCESS_DENIED", ""});
    const Ending explain = On({"explain", "1"});
    EXPECT_EQ(explain.exitCode, 3);
    EXPECT_THAT(explain.errors, HasSubstr("qvsata: '1': disks not readable\n"));
    EXPECT_THAT(explain.errors, Not(HasSubstr("the disks:")));
}

}  // namespace
}  // namespace qv::test
