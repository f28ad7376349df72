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
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string hosts = QV_SOURCE_DIR "/hosts/";

class ReportTest : public testing::Test {
protected:
    /// Runs the command, with the page as its output.
    Ending Report(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "report");
        arguments.insert(arguments.end(),
                         {"-o", page_.Path().string(), "--mof", QV_SOURCE_DIR "/mof"});
        return RunHere(arguments);
    }

    /// Returns the page that was written.
    std::string Page() const {
        std::ostringstream text;
        text << std::ifstream(page_.Path()).rdbuf();
        return text.str();
    }

    /// Returns the file of a recording of which a class is denied.
    std::string Without(const std::string& nameSpace, const std::string& className) const {
        json host = Recorded("ahci-desktop.json");
        host["namespaces"][nameSpace][className] = {{"fails", "WBEM_E_ACCESS_DENIED"}};
        return FileOf(host);
    }

    static json Recorded(const std::string& recording) {
        json host;
        std::ifstream(hosts + recording) >> host;
        return host;
    }

    /// Returns a recording on which the provider cannot publish disks.
    static json WithoutPublishedDisks() {
        json host = Recorded("drill/3-failed.json");
        host["namespaces"]["root\\CIMv2"]["Win32_DiskDrive"][0].erase("DeviceID");
        return host;
    }

    std::string FileOf(const json& host) const {
        std::ofstream(recording_.Path()) << host;
        return recording_.Path().string();
    }

private:
    const TemporaryFile page_;
    const TemporaryFile recording_;
};

TEST_F(ReportTest, WritesAPageAndItsHeadline) {
    const Ending run = Report({"--host", hosts + "mixed-buses-failing.json"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, EndsWith(": backup-node1.example.org: failure predicted for 1 disk\n"));
    EXPECT_THAT(
        Page(),
        AllOf(HasSubstr("<p class=\"verdict predicted\">failure predicted for 1 disk</p>"),
              HasSubstr("5 disks: 3 OK, 1 Degraded, 1 Pred Fail"),
              HasSubstr("<p>Every source that was asked was read.</p>"),
              HasSubstr("#2 Halden HD4000F05"),
              HasSubstr("<dd>not published: InterfaceType is &quot;SCSI&quot;"),
              HasSubstr("<h3>Win32_DiskDrive</h3>"), HasSubstr("<th scope=\"row\">Win32_PnPDevice"),
              HasSubstr("no published disk&#39;s ID is equal to another&#39;s")));
}

TEST_F(ReportTest, OfARefusedSourceIsWrittenAndSaysSo) {
    const Ending run = Report({"--host", Without("root\\CIMv2", "Win32_DiskDrive")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(run.errors, HasSubstr("Win32_DiskDrive: WBEM_E_ACCESS_DENIED"));
    EXPECT_THAT(Page(),
                AllOf(HasSubstr("<p class=\"verdict unknown\">disks not readable</p>"),
                      HasSubstr("<b>Win32_DiskDrive</b> of root\\CIMv2: WBEM_E_ACCESS_DENIED"),
                      HasSubstr("Disks not readable."), Not(HasSubstr("no disks")),
                      Not(HasSubstr("no channels")), Not(HasSubstr("Every "))));
}

TEST_F(ReportTest, OfAPublishedClassThatFailsIsWrittenAndSaysSo) {
    const Ending run = Report({"--host", FileOf(WithoutPublishedDisks())});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, StartsWith("qvsata: enumerating QV_SATADiskDrive: "));
    EXPECT_THAT(Page(), AllOf(HasSubstr("<p class=\"verdict failed\">1 disk failed</p>"),
                              HasSubstr("<li>enumerating QV_SATADiskDrive: "),
                              HasSubstr("Halden HD4000F05"), HasSubstr("disks not readable"),
                              Not(HasSubstr("no disks")), Not(HasSubstr("Every source"))));
}

TEST_F(ReportTest, OfAPublishedClassThatFailsAndARefusedSourceIsWritten) {
    json host = WithoutPublishedDisks();
    host["namespaces"]["root\\CIMv2"]["Win32_IDEController"] = {{"fails", "WBEM_E_ACCESS_DENIED"}};
    EXPECT_EQ(Report({"--host", FileOf(host)}).exitCode, 3);
    EXPECT_THAT(Page(), AllOf(HasSubstr("<li>enumerating QV_SATADiskDrive: "),
                              HasSubstr("<b>Win32_IDEController</b>")));
}

TEST_F(ReportTest, OfSeveralHostsKnowsThoseOfWhichAPublishedClassFails) {
    const Ending run =
        Report({"--host", FileOf(WithoutPublishedDisks()), "--host", hosts + "ahci-desktop.json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(Page(),
                AllOf(HasSubstr("not all instances readable"),
                      HasSubstr("<li>enumerating QV_SATADiskDrive: "), HasSubstr("1 disk failed")));
}

TEST_F(ReportTest, WithoutAPublishedClassDoesNotKnowTheEvents) {
    const std::string drill = hosts + "drill/";
    const Ending run =
        Report({"--host", drill + "0-healthy.json", "--then", FileOf(WithoutPublishedDisks()),
                "--then", drill + "3-failed.json", "--then", drill + "6-pulled.json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(Page(), AllOf(HasSubstr("from 4 recordings"), HasSubstr("events not readable"),
                              HasSubstr("<b>613</b> Disk #1"), Not(HasSubstr("<b>603</b>"))));
}

TEST_F(ReportTest, WithoutPredictionsCallsNoHostOk) {
    const Ending run =
        Report({"--host", Without("root\\wmi", "MSStorageDriver_FailurePredictStatus")});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_THAT(Page(), AllOf(HasSubstr("verdict unknown\">failure predictions not readable</p>"),
                              Not(HasSubstr("verdict fine"))));
}

TEST_F(ReportTest, WithoutControllersDoesNotCallThemAbsent) {
    EXPECT_EQ(Report({"--host", Without("root\\CIMv2", "Win32_IDEController")}).exitCode, 3);
    EXPECT_THAT(Page(), AllOf(HasSubstr("IDE and SATA controllers not readable"),
                              Not(HasSubstr("no IDE or SATA controllers"))));
}

TEST_F(ReportTest, OfSeveralRecordingsOfOneComputerHasTheEvents) {
    const std::string drill = hosts + "drill/";
    const Ending run =
        Report({"--host", drill + "0-healthy.json", "--then", drill + "3-failed.json", "--then",
                drill + "3-failed.json", "--then", drill + "6-pulled.json"});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(Page(), AllOf(HasSubstr("from 4 recordings"),
                              HasSubstr("<b>603</b> Disk #1 Halden HD4000F05 (S/N HDF4Z1230K7D) of "
                                        "cellar-nas.example.org: disk error (OK → Error)."),
                              HasSubstr("<p>no event</p>"), HasSubstr("<b>613</b> Disk #1"),
                              HasSubstr("1 disk: 1 OK")));
}

TEST_F(ReportTest, RefusesRecordingsOfDifferentComputers) {
    const Ending run =
        Report({"--host", hosts + "drill/0-healthy.json", "--then", hosts + "ahci-desktop.json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("ahci-desktop.json: not a recording of the computer of "));
    EXPECT_EQ(Page(), "");
}

TEST_F(ReportTest, DoesNotTakeComputersWithoutNamesForOne) {
    json host = Recorded("drill/0-healthy.json");
    host["computer"] = json::object();
    const std::string nameless = FileOf(host);
    const Ending run = Report({"--host", nameless, "--then", nameless});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr(": the recording does not name its computer\n"));
    EXPECT_EQ(Page(), "");
}

TEST_F(ReportTest, RefusesLaterRecordingsOfSeveralHosts) {
    EXPECT_EQ(Report({"--host", hosts, "--then", hosts + "ahci-desktop.json"}).exitCode, 2);
}

TEST_F(ReportTest, OfAFolderHasAnIndexWithTheBrokenRecordings) {
    const Ending run = Report({"--host", hosts, "--host", hosts + "README.md"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(
        run.output,
        EndsWith(
            ": 7 hosts: the worst is backup-node1.example.org: failure predicted for 1 disk\n"));
    EXPECT_THAT(Page(), AllOf(HasSubstr("<bdi>7 hosts</bdi>"), HasSubstr("<h2 id=\"h1-host\">"),
                              HasSubstr("README.md: ")));
}

TEST_F(ReportTest, OfAComputerWithoutANameIsIncomplete) {
    json host;
    std::ifstream(hosts + "ahci-desktop.json") >> host;
    host["computer"] = {{"server", "STUDY-DESK"}};
    const TemporaryFile nameless;
    std::ofstream(nameless.Path()) << host;
    const Ending run = Report({"--host", nameless.Path().string()});
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_EQ(run.errors, "the computer's name cannot be read: most instances have no path\n");
    EXPECT_THAT(Page(), HasSubstr("<title id=\"picture\">"));
}

TEST_F(ReportTest, ThatCannotBeWrittenIsAnError) {
    const Ending run = RunHere({"report", "--host", hosts + "ahci-desktop.json", "-o",
                                hosts + "none/x.html", "--mof", QV_SOURCE_DIR "/mof"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("none/x.html: the file cannot be written\n"));
}

}  // namespace
}  // namespace qv::test
