#include <gmock/gmock.h>

#include <chrono>
#include <fstream>
#include <regex>
#include <set>
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
using testing::StartsWith;

/// Returns what is wrong with a text in the format of Prometheus: lines that do not belong to the
/// format, families without help and type or with several, series that appear twice.
std::vector<std::string> Faults(const std::string& text) {
    static const std::regex heading("# HELP ([a-z_]+) [ -~]+");
    static const std::regex series(
        R"re(([a-z_]+)((?:\{[a-z_]+="(?:[^"\\]|\\[\\n"])*"(?:,[a-z_]+="(?:[^"\\]|\\[\\n"])*")*\})?) -?[0-9]+(?:\.[0-9]+)?)re");
    std::vector<std::string> faults;
    std::set<std::string> families;
    std::set<std::string> known;
    std::string family;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::smatch parts;
        bool isRight = false;
        if (std::regex_match(line, parts, heading)) {
            family = parts[1];
            isRight = families.insert(family).second && std::getline(lines, line) &&
                      line == "# TYPE " + family + " gauge";
        } else if (std::regex_match(line, parts, series)) {
            isRight = parts[1] == family && known.insert(parts[1].str() + parts[2].str()).second;
        }
        if (!isRight) {
            faults.push_back(line);
        }
    }
    if (!text.ends_with('\n')) {
        faults.emplace_back("no line feed at the end");
    }
    return faults;
}

std::string ContentOf(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/// A recording with three disks that a test changes.
class MetricsTest : public testing::Test {
protected:
    MetricsTest() { std::ifstream(QV_SOURCE_DIR "/hosts/ahci-desktop.json") >> host_; }

    json& Disks() { return host_["namespaces"]["root\\CIMv2"]["Win32_DiskDrive"]; }

    Ending Run(std::vector<std::string> options = {}) const {
        std::ofstream(recording_.Path()) << host_;
        options.insert(options.begin(), "metrics");
        options.insert(options.end(),
                       {"--host", recording_.Path().string(), "--mof", QV_SOURCE_DIR "/mof"});
        return RunHere(options);
    }

    json host_;
    const TemporaryFile folder_;  ///< not created

private:
    const TemporaryFile recording_;
};

class EachRecordingsMetrics : public testing::TestWithParam<const char*> {};

TEST_P(EachRecordingsMetrics, AreInTheFormat) {
    EXPECT_THAT(Faults(RunOn(GetParam(), {"metrics"}).output), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Metrics, EachRecordingsMetrics,
    testing::Values("hosts/ahci-desktop.json", "hosts/every-driver-family.json",
                    "hosts/mixed-buses-failing.json", "hosts/drill/6-pulled.json",
                    "tests/hosts/failing-disk.json", "tests/hosts/sixteen-disks.json",
                    "tests/hosts/vmware-server-2016.json", "tests/hosts/xp-legacy-ide.json",
                    "tests/hosts/languages/chinese.json", "tests/hosts/languages/russian.json"));

TEST(Metrics, AreThoseOfTheMachine) {
    const std::string text = RunOn("hosts/mixed-buses-failing.json", {"metrics"}).output;
    EXPECT_THAT(text,
                AllOf(HasSubstr("qvsata_computer_info{computer=\"backup-node1.example.org\"} 1\n"),
                      HasSubstr("qvsata_disks 5\n"), HasSubstr("qvsata_disks_published 3\n"),
                      HasSubstr("qvsata_disk_failure_predicted{disk=\"2\"} 1\n"),
                      Not(HasSubstr("qvsata_disk_failure_predicted{disk=\"4\"}")),
                      HasSubstr("qvsata_disk_status{disk=\"3\",status=\"degraded\"} 1\n"),
                      HasSubstr("qvsata_disk_excluded_info{disk=\"4\",reason=\"bus is USB\"} 1\n"),
                      HasSubstr("qvsata_collection_status{status=\"degraded\"} 1\n"),
                      HasSubstr("qvsata_source_rows{class=\"Win32_DiskDrive\"} 5\n")));
}

TEST(Metrics, TellWhenTheMachineWasRead) {
    using std::chrono::system_clock;
    const auto before = std::chrono::floor<std::chrono::seconds>(system_clock::now());
    const std::string text = RunOn("hosts/legacy-ide.json", {"metrics"}).output;
    std::smatch found;
    ASSERT_TRUE(std::regex_search(text, found,
                                  std::regex("\nqvsata_last_run_timestamp_seconds ([0-9]+)\n")));
    const std::chrono::sys_seconds time{std::chrono::seconds(std::stoll(found[1]))};
    EXPECT_LE(before, time);
    EXPECT_LE(time, system_clock::now());
}

TEST_F(MetricsTest, OfHostileTextsAreInTheFormat) {
    const std::string hostile = "Evil\x1B[2J\r\nqvsata_disks 9\n\u202E\\\"} 1";
    Disks()[0]["Model"] = hostile + std::string(70'000, 'x');
    Disks()[0]["InterfaceType"] = hostile;
    Disks()[0]["FirmwareRevision"] = hostile;
    Disks()[0]["PNPDeviceID"] = hostile;
    Disks()[0]["Status"] = hostile;
    host_["computer"]["dnsFullyQualified"] = hostile;
    const std::string text = Run().output;
    EXPECT_THAT(Faults(text), IsEmpty());
    EXPECT_THAT(text, Not(HasSubstr("\nqvsata_disks 9")));
}

TEST_F(MetricsTest, OfEqualDisksAreInTheFormat) {
    Disks().push_back(Disks()[0]);
    EXPECT_THAT(Faults(Run().output), IsEmpty());
}

TEST_F(MetricsTest, OfDisksWithoutNumberAreInTheFormat) {
    Disks()[0]["Index"] = nullptr;
    Disks()[1].erase("Index");
    EXPECT_THAT(Faults(Run().output), IsEmpty());
}

TEST_F(MetricsTest, OfAClassThatCannotBePublishedHaveWhatIsKnown) {
    Disks()[1].erase("DeviceID");
    Disks()[2]["Status"] = "Error";
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, StartsWith("qvsata: "));
    EXPECT_THAT(Faults(run.output), IsEmpty());
    EXPECT_THAT(run.output,
                AllOf(HasSubstr("qvsata_disks 3\n"), Not(HasSubstr("qvsata_disks_published")),
                      HasSubstr("qvsata_disk_status{disk=\"2\",status=\"failed\"} 1\n"),
                      HasSubstr("qvsata_source_success{class=\"Win32_SystemDriver\"} 1\n")));
}

TEST(Metrics, TellWhenTheRecordingWasChanged) {
    using std::chrono::file_clock;
    const std::chrono::sys_seconds time{std::chrono::seconds(1'600'000'000)};
    const TemporaryFile recording;
    std::filesystem::copy_file(QV_SOURCE_DIR "/hosts/legacy-ide.json", recording.Path());
    std::filesystem::last_write_time(recording.Path(), file_clock::from_sys(time));
    const Ending run =
        RunHere({"metrics", "--host", recording.Path().string(), "--mof", QV_SOURCE_DIR "/mof"});
    EXPECT_THAT(run.output,
                HasSubstr("\nqvsata_recording_modified_timestamp_seconds 1600000000\n"));
}

TEST_F(MetricsTest, OfNoDisksCountThem) {
    Disks() = json::array();
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_THAT(run.output, HasSubstr("qvsata_disks 0\n"));
}

TEST_F(MetricsTest, OfDisksThatCannotBeReadDoNotCountThem) {
    Disks() = {{"fails", "WBEM_E_ACCESS_DENIED"}};
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.errors, HasSubstr("Win32_DiskDrive: WBEM_E_ACCESS_DENIED"));
    EXPECT_THAT(Faults(run.output), IsEmpty());
    EXPECT_THAT(run.output,
                AllOf(HasSubstr("qvsata_source_success{class=\"Win32_DiskDrive\"} 0\n"),
                      Not(HasSubstr("qvsata_source_rows{class=\"Win32_DiskDrive\"}")),
                      Not(HasSubstr("qvsata_disk")), Not(HasSubstr("qvsata_collection"))));
}

TEST_F(MetricsTest, OfPredictionsThatCannotBeReadLeaveThemOut) {
    host_["namespaces"].erase("root\\wmi");
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.output, AllOf(HasSubstr("{class=\"MSStorageDriver_FailurePredictStatus\"} 0\n"),
                                  HasSubstr("qvsata_disks 3\n"),
                                  Not(HasSubstr("qvsata_disk_failure_predicted")),
                                  Not(HasSubstr("qvsata_unknown_devices_failing"))));
}

TEST_F(MetricsTest, OfAMachineOfWhichNothingCanBeReadAreInTheFormat) {
    host_["namespaces"] = json::object();
    host_["computer"] = json::object();
    const Ending run = Run();
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(Faults(run.output), IsEmpty());
    EXPECT_THAT(run.output,
                AllOf(HasSubstr("qvsata_computer_info 1\n"),
                      HasSubstr("{class=\"Win32_DiskDrive\"} 0\n"), Not(HasSubstr("qvsata_disk"))));
}

TEST_F(MetricsTest, HaveTheExpectedNumberOfDisks) {
    EXPECT_THAT(Run({"--expect", "0"}).output, HasSubstr("qvsata_disks_expected 0\n"));
    EXPECT_THAT(Run().output, Not(HasSubstr("qvsata_disks_expected")));
    EXPECT_EQ(Run({"--expect", "some"}).exitCode, 2);
}

TEST_F(MetricsTest, ReplaceAFileAndLeaveNoOther) {
    std::filesystem::create_directory(folder_.Path());
    const std::filesystem::path file = folder_.Path() / "qvsata.prom";
    std::ofstream(file) << "former";
    const Ending run = Run({"-o", file.string()});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(Faults(ContentOf(file)), IsEmpty());
    const std::filesystem::directory_iterator files(folder_.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(MetricsTest, OfASourceThatCannotBeReadAreWritten) {
    Disks() = {{"fails", true}};
    EXPECT_EQ(Run({"-o", folder_.Path().string()}).exitCode, 3);
    EXPECT_THAT(ContentOf(folder_.Path()), HasSubstr("{class=\"Win32_DiskDrive\"} 0\n"));
}

TEST_F(MetricsTest, LeaveTheUnfinishedFileOfAnotherRunAlone) {
    std::filesystem::create_directory(folder_.Path());
    const std::filesystem::path unfinished = folder_.Path() / "qvsata.prom.part";
    std::ofstream(unfinished) << "unfinished";
    EXPECT_EQ(Run({"-o", (folder_.Path() / "qvsata.prom").string()}).exitCode, 0);
    EXPECT_EQ(ContentOf(unfinished), "unfinished");
}

TEST_F(MetricsTest, OfABrokenRecordingLeaveTheFileAsItWas) {
    std::ofstream(folder_.Path()) << "former";
    host_.erase("namespaces");
    EXPECT_EQ(Run({"-o", folder_.Path().string()}).exitCode, 1);
    EXPECT_EQ(ContentOf(folder_.Path()), "former");
}

TEST_F(MetricsTest, ThatCannotBeWrittenAreOneLine) {
    const Ending run = Run({"-o", "/proc/none/qvsata.prom"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "qvsata: /proc/none/qvsata.prom: the file cannot be written\n");
}

}  // namespace
}  // namespace qv::test
