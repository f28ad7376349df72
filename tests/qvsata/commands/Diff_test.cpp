// What differs between two recordings, and the events that the change raises.
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
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string drill = QV_SOURCE_DIR "/hosts/drill/";
const std::string desktop = QV_SOURCE_DIR "/hosts/ahci-desktop.json";

Ending Diff(const std::string& from, const std::string& to,
            const std::vector<std::string>& more = {}) {
    std::vector<std::string> command{"diff", from, to, "--mof", QV_SOURCE_DIR "/mof"};
    command.insert(command.end(), more.begin(), more.end());
    return RunHere(command);
}

json DiffAsJson(const std::string& from, const std::string& to) {
    return json::parse(Diff(from, to, {"--format", "json"}).output);
}

/// Two neighbouring recordings of the drill, and what a watch announces between them.
struct Step {
    const char* from;
    const char* to;
    const char* event;
    const char* sentence;
};

class EachStepOfTheDrill : public testing::TestWithParam<Step> {};

TEST_P(EachStepOfTheDrill, RaisesTheEventThatAWatchAnnounces) {
    const json diff = DiffAsJson(drill + GetParam().from, drill + GetParam().to);
    ASSERT_EQ(diff["events"].size(), 1U);
    EXPECT_EQ(diff["events"][0]["event"], GetParam().event);
    EXPECT_EQ(diff["events"][0]["sentence"], GetParam().sentence);
    EXPECT_EQ(diff["same"], false);
    EXPECT_EQ(diff["sameComputer"], true);
}

TEST_P(EachStepOfTheDrill, IsADifferenceWhoseEventIsInTheText) {
    const Ending run = Diff(drill + GetParam().from, drill + GetParam().to);
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.errors, IsEmpty());
    EXPECT_THAT(run.output, HasSubstr("events of this change:\n    " +
                                      std::string(GetParam().event) + " " + GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(
    Recordings, EachStepOfTheDrill,
    testing::Values(
        Step{"0-healthy.json", "1-degraded.json", "604",
             "Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of cellar-nas.example.org: disk degraded "
             "(OK → Degraded)."},
        Step{"1-degraded.json", "2-predicted.json", "605",
             "Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of cellar-nas.example.org: failure "
             "predicted (Degraded → Pred Fail)."},
        Step{"2-predicted.json", "3-failed.json", "603",
             "Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of cellar-nas.example.org: disk error "
             "(Pred Fail → Error)."},
        Step{"3-failed.json", "4-recovered.json", "602",
             "Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of cellar-nas.example.org: disk OK "
             "(Error → OK)."},
        Step{"4-recovered.json", "5-no-contact.json", "601",
             "Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of cellar-nas.example.org: status "
             "unknown (OK → No Contact)."},
        Step{"5-no-contact.json", "6-pulled.json", "613",
             "Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of cellar-nas.example.org: disk "
             "disappeared (gone, was No Contact)."},
        Step{"6-pulled.json", "7-replaced.json", "600",
             "Disk #1 Halden HD6000G02 (S/N HDG2Z0418A1R) of cellar-nas.example.org: disk appeared "
             "(new, OK)."}),
    [](const auto& step) { return "Event" + std::string(step.param.event); });

/// Returns the events of the drill's steps as diff names them: "604 Halden HD4000F05".
std::vector<std::string> EventsOfTheSteps() {
    std::vector<std::string> recordings;
    for (const auto& file : std::filesystem::directory_iterator(drill)) {
        recordings.push_back(file.path().string());
    }
    std::erase_if(recordings, [](const std::string& name) { return !name.ends_with(".json"); });
    std::ranges::sort(recordings);
    std::vector<std::string> events;
    for (std::size_t step = 1; step < recordings.size(); ++step) {
        const json diff = DiffAsJson(recordings[step - 1], recordings[step]);
        for (const json& event : diff["events"]) {
            events.push_back(event["event"].get<std::string>() + ' ' +
                             event["model"].get<std::string>());
        }
    }
    return events;
}

/// Returns the events that the library delivered in the drill, in the same form.
std::vector<std::string> DeliveredEvents() {
    std::vector<std::string> events;
    std::ifstream golden(QV_SOURCE_DIR "/tests/golden/event-drill.txt");
    for (std::string line; std::getline(golden, line);) {
        const std::string value =
            line.substr(line.find('"') + 1, line.rfind('"') - line.find('"') - 1);
        if (line.starts_with("  EventID: ")) {
            events.push_back(value);
        } else if (line.starts_with("  DeviceModel: ")) {
            events.back() += ' ' + value;
        }
    }
    return events;
}

TEST(Diff, OfTheStepsOfTheDrillNamesTheDeliveredEvents) {
    const std::vector<std::string> delivered = DeliveredEvents();
    EXPECT_EQ(delivered.size(), 7U);
    EXPECT_EQ(EventsOfTheSteps(), delivered);
}

TEST(Diff, OfADiskOfAnotherStatusSaysFromWhatToWhat) {
    EXPECT_EQ(Diff(drill + "0-healthy.json", drill + "1-degraded.json").output,
              "from " + drill + "0-healthy.json (cellar-nas.example.org)\n" + "to   " + drill +
                  "1-degraded.json (cellar-nas.example.org)\n"
                  "changed: disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D)\n"
                  "    status: OK → Degraded\n"
                  "    published status: OK → Degraded (QV_SATADiskDrive, QV_SATAStorageExtent)\n"
                  "changed: QV_SATAStorageCollection Disk Drives Consolidated Status\n"
                  "    published consolidated status: OK → Degraded\n"
                  "events of this change:\n"
                  "    604 Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of cellar-nas.example.org: "
                  "disk degraded (OK → Degraded).\n");
}

TEST(Diff, CountsWhatIsGoneWithADisk) {
    EXPECT_THAT(Diff(drill + "5-no-contact.json", drill + "6-pulled.json").output,
                HasSubstr("gone: disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D), No Contact, 4000.8 "
                          "GB, and "));
}

TEST(Diff, OfARecordingAndItselfSaysSo) {
    const Ending run = Diff(desktop, desktop);
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "from " + desktop + " (study-desk.example.org)\nto   " + desktop +
                              " (study-desk.example.org)\nno differences\n");
    const json diff = DiffAsJson(desktop, desktop);
    EXPECT_EQ(diff["same"], true);
    EXPECT_EQ(diff["formatVersion"], 1);
    EXPECT_EQ(diff["events"], json::array());
}

TEST(Diff, OfDifferentComputersSaysSo) {
    const Ending run = Diff(desktop, drill + "0-healthy.json");
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.output, HasSubstr("\ndifferent computers: "));
    EXPECT_EQ(DiffAsJson(desktop, drill + "0-healthy.json")["sameComputer"], false);
}

/// Changes a copy of the desktop's recording.
class ChangedDesktop : public testing::Test {
protected:
    ChangedDesktop() { std::ifstream(desktop) >> host_; }

    json& Rows(const char* nameSpace, const char* className) {
        return host_["namespaces"][nameSpace][className];
    }
    json& FirstDisk() { return Rows(cimv2, "Win32_DiskDrive")[0]; }
    std::string Written() const {
        std::ofstream(file_.Path()) << host_;
        return file_.Path().string();
    }

    static constexpr const char* cimv2 = R"(root\CIMv2)";
    static constexpr const char* wmi = R"(root\wmi)";

private:
    const TemporaryFile file_;
    json host_;
};

TEST_F(ChangedDesktop, WithAnUnreadSourceOfTheSecondNamesTheFile) {
    Rows(cimv2, "Win32_DiskDrive") = {{"fails", "WBEM_E_ACCESS_DENIED"}};
    const std::string file = Written();
    const Ending run = Diff(desktop, file);
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors, file +
                              R"(: root\CIMv2 Win32_DiskDrive: WBEM_E_ACCESS_DENIED (0x80041003): )"
                              "disks and what belongs to them cannot be published\n");
    EXPECT_THAT(run.output, AllOf(HasSubstr("not readable: disks\n"), Not(HasSubstr("gone: ")),
                                  Not(HasSubstr("new: ")), Not(HasSubstr("no differences\n")),
                                  HasSubstr("no differences in what could be read\n")));
    EXPECT_TRUE(DiffAsJson(desktop, file)["same"].is_null());
    EXPECT_TRUE(DiffAsJson(desktop, file)["disks"].is_null());
}

TEST_F(ChangedDesktop, WithAnUnreadSourceOfTheFirstNamesTheFile) {
    Rows(cimv2, "Win32_PhysicalMedia") = {{"fails", "WBEM_E_ACCESS_DENIED"}};
    const std::string file = Written();
    const Ending run = Diff(file, desktop);
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.errors, testing::StartsWith(file + R"(: root\CIMv2 Win32_PhysicalMedia: )"));
    EXPECT_THAT(run.output, AllOf(HasSubstr("not readable: of disks decoded serial number, serial "
                                            "number\n"),
                                  Not(HasSubstr("serial number: "))));
}

TEST_F(ChangedDesktop, WithUnreadPredictionsHasUnknownEvents) {
    Rows(wmi, "MSStorageDriver_FailurePredictStatus") = {{"fails", "WBEM_E_ACCESS_DENIED"}};
    const Ending run = Diff(desktop, Written());
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.output, HasSubstr("events are not known"));
    EXPECT_TRUE(DiffAsJson(desktop, Written())["events"].is_null());
}

TEST_F(ChangedDesktop, ShowsControlCharactersOfDevicesAsCodes) {
    FirstDisk()["Model"] = "A\x1b[2J\nB";
    EXPECT_THAT(Diff(desktop, Written()).output,
                AllOf(HasSubstr("disk #0 A\\x1b[2J\\x0aB"), Not(HasSubstr("\x1b"))));
}

TEST_F(ChangedDesktop, NamesEachChangeOfARenamedDiskOnce) {
    FirstDisk()["Caption"] = "Renamed";
    FirstDisk()["Model"] = "Renamed";
    const Ending run = Diff(desktop, Written());
    EXPECT_THAT(run.output, HasSubstr("changed: disk #0 Renamed (S/N NLS0240A7731K05)\n"
                                      "    model: NORTHLAKE N240S ATA Device → Renamed\n"));
    EXPECT_LE(std::ranges::count(run.output, '\n'), 10);
}

TEST_F(ChangedDesktop, WithRowsInAnotherOrderIsTheSame) {
    json& disks = Rows(cimv2, "Win32_DiskDrive");
    std::swap(disks[1], disks[2]);
    EXPECT_EQ(Diff(desktop, Written()).exitCode, 0);
}

/// Two folders of recordings.
class DiffOfFolders : public testing::Test {
protected:
    DiffOfFolders() {
        std::filesystem::create_directory(before_.Path());
        std::filesystem::create_directory(now_.Path());
        Copy(desktop, before_, "desktop.json");
        Copy(desktop, now_, "desktop.json");
        Copy(drill + "0-healthy.json", before_, "nas.json");
        Copy(drill + "1-degraded.json", now_, "nas.json");
    }

    static void Copy(const std::string& recording, const TemporaryFile& folder, const char* name) {
        std::filesystem::copy_file(recording, folder.Path() / name);
    }
    Ending Run(const std::vector<std::string>& more = {}) const {
        return Diff(before_.Path().string(), now_.Path().string(), more);
    }

    const TemporaryFile before_;
    const TemporaryFile now_;
};

TEST_F(DiffOfFolders, ComparesRecordingsOfOneName) {
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 4);
    EXPECT_THAT(run.errors, IsEmpty());
    EXPECT_THAT(run.output,
                AllOf(testing::StartsWith("from " + (before_.Path() / "desktop.json").string() +
                                          " (study-desk.example.org)\n"),
                      HasSubstr("\nno differences\nfrom " + (before_.Path() / "nas.json").string()),
                      HasSubstr("    604 Disk #1 Halden")));
}

TEST_F(DiffOfFolders, HasADocumentInALineForEachPair) {
    std::istringstream lines(Run({"--format", "json"}).output);
    std::string desktops;
    std::string stores;
    std::getline(lines, desktops);
    std::getline(lines, stores);
    EXPECT_EQ(json::parse(desktops)["same"], true);
    EXPECT_EQ(json::parse(stores)["same"], false);
    EXPECT_EQ(json::parse(stores)["to"]["name"], (now_.Path() / "nas.json").string());
}

TEST_F(DiffOfFolders, FailsForARecordingWithoutItsLike) {
    Copy(desktop, now_, "new.json");
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "qvsata: " + (now_.Path() / "new.json").string() +
                              ": no recording of this name in the other folder\n");
    EXPECT_THAT(run.output, HasSubstr("    604 Disk #1 Halden"));
}

TEST_F(DiffOfFolders, GoesOnAfterABrokenRecording) {
    std::ofstream(now_.Path() / "desktop.json") << "{";
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors,
                testing::StartsWith("qvsata: " + (now_.Path() / "desktop.json").string() + ": "));
    EXPECT_THAT(run.output, HasSubstr("    604 Disk #1 Halden"));
}

TEST(Diff, NeedsTwoRecordings) {
    const Ending run = RunHere({"diff", desktop});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_THAT(run.errors, HasSubstr("give two recordings, or one and --live"));
    EXPECT_EQ(RunHere({"diff", desktop, desktop, "--live"}).exitCode, 2);
}

TEST(Diff, NamesAFileThatCannotBeRead) {
    const Ending run = Diff(desktop, "none.json");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("none.json"));
}

}  // namespace
}  // namespace qv::test
