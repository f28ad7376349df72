#include "qvsata/metrics/MachineFamilies.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

namespace qv::test {
namespace {

using metrics::Machine;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using view::Health;
using view::OsDisk;

std::string TextOf(const Machine& machine) {
    return metrics::ExpositionText(metrics::FamiliesOf(machine));
}

std::string TextOf(std::vector<OsDisk> disks) {
    Machine machine;
    machine.disks.disks = std::move(disks);
    return TextOf(machine);
}

OsDisk DiskWithNumber(std::int64_t number) {
    OsDisk disk;
    disk.number = number;
    disk.health = {2, "OK"};
    return disk;
}

OsDisk DiskWithHealth(const Health& health) {
    OsDisk disk = DiskWithNumber(0);
    disk.health = health;
    return disk;
}

/// More disks than have series of their own; the one with the highest number has failed.
std::vector<OsDisk> TooManyDisks() {
    std::vector<OsDisk> disks;
    for (std::size_t number = 0; number <= metrics::mostDisks; ++number) {
        disks.push_back(DiskWithNumber(static_cast<std::int64_t>(number)));
    }
    disks.back().health = {6, "Error"};
    return disks;
}

TEST(MachineFamilies, NameTheRunAndTheComputer) {
    Machine machine;
    machine.version = "1.2.3";
    machine.time = std::chrono::sys_seconds(std::chrono::seconds(1'700'000'000));
    machine.computer = "den.example.org";
    EXPECT_THAT(TextOf(machine),
                AllOf(HasSubstr("qvsata_build_info{version=\"1.2.3\"} 1\n"),
                      HasSubstr("qvsata_last_run_timestamp_seconds 1700000000\n"),
                      HasSubstr("qvsata_computer_info{computer=\"den.example.org\"} 1\n")));
}

TEST(MachineFamilies, KeepTheComputersSeriesWithoutAName) {
    EXPECT_THAT(TextOf(Machine()), HasSubstr("qvsata_computer_info 1\n"));
}

TEST(MachineFamilies, HaveRowsAndTimeOfASourceThatWasRead) {
    Machine machine;
    machine.sources = {{"Win32_DiskDrive", 3, std::chrono::microseconds(1500)}};
    EXPECT_THAT(
        TextOf(machine),
        AllOf(HasSubstr("qvsata_source_success{class=\"Win32_DiskDrive\"} 1\n"),
              HasSubstr("qvsata_source_rows{class=\"Win32_DiskDrive\"} 3\n"),
              HasSubstr("qvsata_source_duration_seconds{class=\"Win32_DiskDrive\"} 0.0015\n")));
}

TEST(MachineFamilies, HaveNoRowsOfASourceThatCouldNotBeRead) {
    Machine machine;
    machine.sources = {{"Win32_DiskDrive", std::nullopt, {}}};
    EXPECT_THAT(TextOf(machine),
                AllOf(HasSubstr("qvsata_source_success{class=\"Win32_DiskDrive\"} 0\n"),
                      Not(HasSubstr("qvsata_source_rows"))));
}

TEST(MachineFamilies, CountNoDisksIfThereAreNone) {
    EXPECT_THAT(TextOf(Machine()),
                AllOf(HasSubstr("qvsata_disks 0\n"), HasSubstr("qvsata_disks_omitted 0\n"),
                      Not(HasSubstr("qvsata_disk_"))));
}

TEST(MachineFamilies, HaveNoCountOfDisksThatCouldNotBeRead) {
    Machine machine;
    machine.disks.disksAreRead = false;
    EXPECT_THAT(TextOf(machine), Not(HasSubstr("qvsata_disks")));
}

/// A series that a machine has only if something is known of it.
struct KnownSeries {
    const char* name;
    void (*tell)(Machine&);
    const char* series;
    const char* value;
};

class MachineFamiliesThatNeedKnowledge : public testing::TestWithParam<KnownSeries> {};

TEST_P(MachineFamiliesThatNeedKnowledge, AreThereOnlyWithIt) {
    const auto& [name, tell, series, value] = GetParam();
    Machine machine;
    EXPECT_THAT(TextOf(machine), Not(HasSubstr(series)));
    tell(machine);
    EXPECT_THAT(TextOf(machine), HasSubstr(series + std::string(" ") + value + "\n"));
}

INSTANTIATE_TEST_SUITE_P(
    MachineFamilies, MachineFamiliesThatNeedKnowledge,
    testing::Values(KnownSeries{"Published", [](Machine& machine) { machine.published = 0; },
                                "qvsata_disks_published", "0"},
                    KnownSeries{"Expected", [](Machine& machine) { machine.expectedDisks = 2; },
                                "qvsata_disks_expected", "2"},
                    KnownSeries{"Recorded",
                                [](Machine& machine) {
                                    machine.recorded = std::chrono::sys_seconds(
                                        std::chrono::seconds(1'600'000'000));
                                },
                                "qvsata_recording_modified_timestamp_seconds", "1600000000"}),
    [](const auto& test) { return test.param.name; });

TEST(MachineFamilies, CountPredictedFailuresOfOtherDevices) {
    Machine machine;
    machine.disks.failingOthers = {"SCSI\\GONE_0"};
    EXPECT_THAT(TextOf(machine), HasSubstr("qvsata_unknown_devices_failing 1\n"));
}

TEST(MachineFamilies, HaveNoPredictionsThatCouldNotBeRead) {
    Machine machine;
    machine.disks.disks = {DiskWithNumber(0)};
    machine.disks.predictionsAreRead = false;
    EXPECT_THAT(TextOf(machine), AllOf(Not(HasSubstr("qvsata_unknown_devices_failing")),
                                       Not(HasSubstr("qvsata_disk_failure_predicted"))));
}

TEST(MachineFamilies, IdentifyADisk) {
    OsDisk disk = DiskWithNumber(3);
    disk.model = "NORTHLAKE N480S";
    disk.serialNumber = "NLS0480C0207H31";
    disk.firmware = "NL3.11";
    disk.bus = "IDE";
    disk.deviceId = "SCSI\\DISK&VEN_";
    disk.size = 480101368320;
    EXPECT_THAT(TextOf({disk}),
                AllOf(HasSubstr("qvsata_disk_info{disk=\"3\",model=\"NORTHLAKE N480S\","
                                "serial=\"NLS0480C0207H31\",firmware=\"NL3.11\",bus=\"IDE\","
                                "device_id=\"SCSI\\\\DISK&VEN_\"} 1\n"),
                      HasSubstr("qvsata_disk_size_bytes{disk=\"3\"} 480101368320\n")));
}

TEST(MachineFamilies, DecodeASerialNumber) {
    OsDisk disk = DiskWithNumber(0);
    disk.serialNumber = "2020445732313433";
    EXPECT_THAT(TextOf({disk}), HasSubstr("serial=\"WD1234\""));
}

TEST(MachineFamilies, HaveNoSizeThatIsNotReported) {
    EXPECT_THAT(TextOf({DiskWithNumber(0)}), Not(HasSubstr("qvsata_disk_size_bytes")));
}

TEST(MachineFamilies, SayWhetherAFailureIsPredicted) {
    OsDisk failing = DiskWithNumber(1);
    failing.hasPrediction = true;
    failing.failureIsPredicted = true;
    OsDisk fine = DiskWithNumber(2);
    fine.hasPrediction = true;
    fine.failureIsPredicted = false;
    EXPECT_THAT(TextOf({failing, fine}),
                AllOf(HasSubstr("qvsata_disk_failure_predicted{disk=\"1\"} 1\n"
                                "qvsata_disk_failure_predicted{disk=\"2\"} 0\n"),
                      HasSubstr("qvsata_disk_prediction_unknown{disk=\"1\"} 0\n"
                                "qvsata_disk_prediction_unknown{disk=\"2\"} 0\n")));
}

TEST(MachineFamilies, HaveNoPredictionOfADiskThatNoPredictionNames) {
    OsDisk unnamed = DiskWithNumber(0);
    unnamed.failureIsPredicted = false;
    EXPECT_THAT(TextOf({unnamed}), AllOf(Not(HasSubstr("qvsata_disk_failure_predicted")),
                                         Not(HasSubstr("qvsata_disk_prediction_unknown"))));
}

TEST(MachineFamilies, HaveNoPredictionThatDoesNotTell) {
    OsDisk silent = DiskWithNumber(0);
    silent.hasPrediction = true;
    EXPECT_THAT(TextOf({silent}), AllOf(HasSubstr("qvsata_disk_prediction_unknown{disk=\"0\"} 1\n"),
                                        Not(HasSubstr("qvsata_disk_failure_predicted"))));
}

TEST(MachineFamilies, SayWhyADiskIsNotPublished) {
    OsDisk excluded = DiskWithNumber(1);
    excluded.whyUnpublished = "bus is SCSI";
    EXPECT_THAT(TextOf({DiskWithNumber(0), excluded}),
                AllOf(HasSubstr("qvsata_disks 2\n"),
                      HasSubstr("qvsata_disk_excluded_info{disk=\"1\",reason=\"bus is SCSI\"} 1\n"),
                      Not(HasSubstr("qvsata_disk_excluded_info{disk=\"0\""))));
}

/// Returns the series of disk 0 for the statuses that are 1.
std::string StatusesOf(const Health& health) {
    std::istringstream text(TextOf({DiskWithHealth(health)}));
    std::string statuses;
    for (std::string line; std::getline(text, line);) {
        statuses += line.starts_with("qvsata_disk_status{") && line.ends_with(" 1") ? line : "";
    }
    return statuses;
}

struct Status {
    Health health;
    const char* shown;
};

class EachStatus : public testing::TestWithParam<Status> {};

TEST_P(EachStatus, IsTheOnlySeriesThatIsOne) {
    EXPECT_EQ(StatusesOf(GetParam().health),
              "qvsata_disk_status{disk=\"0\",status=\"" + std::string(GetParam().shown) + "\"} 1");
}

INSTANTIATE_TEST_SUITE_P(
    MachineFamilies, EachStatus,
    testing::Values(Status{{2, "OK"}, "ok"}, Status{{2, "Service"}, "ok"},
                    Status{{3, "Degraded"}, "degraded"}, Status{{3, "Stressed"}, "degraded"},
                    Status{{5, "Pred Fail"}, "failure_predicted"}, Status{{6, "Error"}, "failed"},
                    Status{{6, "NonRecover"}, "failed"}, Status{{6, "Lost Comm"}, "failed"},
                    Status{{0, "No Contact"}, "unknown"}, Status{{0, "Unknown"}, "unknown"},
                    Status{{0, "Erfunden"}, "unknown"},
                    Status{{std::nullopt, "no status"}, "unknown"}));

TEST(MachineFamilies, HaveASeriesForEachStatus) {
    EXPECT_THAT(TextOf({DiskWithNumber(0)}),
                HasSubstr("qvsata_disk_status{disk=\"0\",status=\"ok\"} 1\n"
                          "qvsata_disk_status{disk=\"0\",status=\"unknown\"} 0\n"
                          "qvsata_disk_status{disk=\"0\",status=\"degraded\"} 0\n"
                          "qvsata_disk_status{disk=\"0\",status=\"failure_predicted\"} 0\n"
                          "qvsata_disk_status{disk=\"0\",status=\"failed\"} 0\n"));
}

TEST(MachineFamilies, KeepTheReportedStatusOfADiskThatIsPredictedToFail) {
    OsDisk disk = DiskWithNumber(0);
    disk.failureIsPredicted = true;
    EXPECT_THAT(TextOf({disk}), HasSubstr("qvsata_disk_status{disk=\"0\",status=\"ok\"} 1\n"));
}

TEST(MachineFamilies, HaveTheCollectionsStatusIfThereIsOne) {
    Machine machine;
    EXPECT_THAT(TextOf(machine), Not(HasSubstr("qvsata_collection_status")));
    machine.collection = Health{3, "Degraded"};
    EXPECT_THAT(TextOf(machine),
                AllOf(HasSubstr("qvsata_collection_status{status=\"degraded\"} 1\n"),
                      HasSubstr("qvsata_collection_status{status=\"ok\"} 0\n")));
}

TEST(MachineFamilies, TellDisksWithOneNumberApart) {
    EXPECT_THAT(TextOf({DiskWithNumber(1), DiskWithNumber(1)}),
                AllOf(HasSubstr("qvsata_disk_info{disk=\"1\"} 1\n"),
                      HasSubstr("qvsata_disk_info{disk=\"1/2\"} 1\n")));
}

TEST(MachineFamilies, TellDisksWithoutNumberApart) {
    EXPECT_THAT(TextOf({OsDisk(), OsDisk()}),
                AllOf(HasSubstr("qvsata_disk_info{disk=\"none\"} 1\n"),
                      HasSubstr("qvsata_disk_info{disk=\"none/2\"} 1\n")));
}

TEST(MachineFamilies, OfTooManyDisksOmitOneOfTheBest) {
    const std::string text = TextOf(TooManyDisks());
    EXPECT_THAT(text, AllOf(HasSubstr("qvsata_disks 257\n"), HasSubstr("qvsata_disks_omitted 1\n"),
                            HasSubstr("qvsata_disk_info{disk=\"254\"} 1\n"
                                      "qvsata_disk_info{disk=\"256\"} 1\n"),
                            HasSubstr("{disk=\"256\",status=\"failed\"} 1\n"),
                            Not(HasSubstr("disk=\"255\""))));
}

}  // namespace
}  // namespace qv::test
