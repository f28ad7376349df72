// What a capture records, and what it leaves of a machine's names and serial numbers.
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "source/Text.h"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::string Content(const std::filesystem::path& file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

/// The path of a file of the source tree; other paths stay.
std::string HostPath(const std::string& host) {
    return host.starts_with('/') ? host : QV_SOURCE_DIR "/" + host;
}

Ending Ask(const std::string& host, std::vector<std::string> command) {
    command.insert(command.end(), {"--host", HostPath(host), "--mof", QV_SOURCE_DIR "/mof"});
    return RunHere(command);
}

std::string Instances(const std::string& host, const std::string& className) {
    return Ask(host, {"enumerate", className, "--format", "json"}).output;
}

/// Everything that is published, as bytes.
std::string Published(const std::string& host) {
    return Instances(host, "CIM_ManagedElement") + Instances(host, "CIM_Component") +
           Instances(host, "CIM_Dependency") + Instances(host, "CIM_ElementLocation") +
           Instances(host, "CIM_MemberOfCollection") +
           Instances(host, "CIM_SAPAvailableForElement") +
           Instances(host, "CIM_InitiatorTargetLogicalUnitPath");
}

/// A capture into a file of its own.
class Capture {
public:
    explicit Capture(const std::string& host, const std::vector<std::string>& more = {}) {
        std::vector<std::string> command{"capture", "-o", file_.Path().string()};
        command.insert(command.end(), more.begin(), more.end());
        ending_ = Ask(host, std::move(command));
    }

    std::string File() const { return file_.Path().string(); }
    std::string Text() const { return Content(file_.Path()); }
    const Ending& End() const { return ending_; }

private:
    const TemporaryFile file_;
    Ending ending_;
};

class EachRecordingCaptured : public testing::TestWithParam<const char*> {};

TEST_P(EachRecordingCaptured, PublishesTheSame) {
    EXPECT_EQ(Published(Capture(GetParam()).File()), Published(GetParam()));
}

TEST_P(EachRecordingCaptured, PublishesAsManyObjectsRedacted) {
    const Capture redacted(GetParam(), {"--redact"});
    EXPECT_NE(redacted.End().exitCode, 1) << redacted.End().errors;
    EXPECT_EQ(Ask(redacted.File(), {"classes"}).output, Ask(GetParam(), {"classes"}).output);
}

INSTANTIATE_TEST_SUITE_P(
    Capture, EachRecordingCaptured,
    testing::Values("hosts/ahci-desktop.json", "hosts/every-driver-family.json",
                    "hosts/legacy-ide.json", "hosts/mixed-buses-failing.json",
                    "hosts/twelve-disk-server.json", "hosts/two-ahci-controllers.json",
                    "hosts/drill/0-healthy.json", "hosts/drill/1-degraded.json",
                    "hosts/drill/2-predicted.json", "hosts/drill/3-failed.json",
                    "hosts/drill/4-recovered.json", "hosts/drill/5-no-contact.json",
                    "hosts/drill/6-pulled.json", "hosts/drill/7-replaced.json",
                    "tests/hosts/failing-disk.json", "tests/hosts/sixteen-disks.json",
                    "tests/hosts/virtualbox-win10.json", "tests/hosts/vmware-server-2016.json",
                    "tests/hosts/win10-ahci-direct.json", "tests/hosts/win11-sata-nvme.json",
                    "tests/hosts/win7-ahci-laptop.json", "tests/hosts/xp-legacy-ide.json",
                    "tests/hosts/languages/chinese.json", "tests/hosts/languages/japanese.json",
                    "tests/hosts/languages/russian.json"));

/// A recording, and a text that nobody may read in the redacted one, in lower case.
class EachSecretOf : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(EachSecretOf, ARecordingIsGoneFromItsRedaction) {
    const auto& [host, secret] = GetParam();
    EXPECT_THAT(FoldCase(Content(HostPath(host))), HasSubstr(secret));
    const std::string redacted = FoldCase(Capture(host, {"--redact"}).Text());
    EXPECT_THAT(redacted, AllOf(HasSubstr("win32_diskdrive"), Not(HasSubstr(secret))));
}

constexpr const char* desktopHost = "hosts/ahci-desktop.json";
constexpr const char* legacyHost = "hosts/legacy-ide.json";
constexpr const char* virtualHost = "tests/hosts/virtualbox-win10.json";
constexpr const char* russianHost = "tests/hosts/languages/russian.json";

INSTANTIATE_TEST_SUITE_P(
    Capture, EachSecretOf,
    testing::Values(
        std::pair{desktopHost, "study-desk"}, std::pair{desktopHost, "example.org"},
        std::pair{desktopHost, "nls0240a7731k05"}, std::pair{desktopHost, "hd-wx41a60t9921"},
        std::pair{desktopHost, "hd-wx41a60t1187"}, std::pair{legacyHost, "frontoffice2"},
        std::pair{legacyHost, "4235315a353034383839"},
        std::pair{legacyHost, "48442d57434130353131373330303132"}, std::pair{virtualHost, "srv07"},
        std::pair{virtualHost, "71047f21"}, std::pair{virtualHost, "fcbf2ac5"},
        std::pair{russianHost, "бухгалтерия"}, std::pair{russianHost, "БУХГАЛТЕРИЯ"},
        std::pair{russianHost, "5a41364c3139393031"},
        std::pair{russianHost, "4448574d415230303731"}));

TEST(Capture, KeepsWhatSupportNeedsRedacted) {
    EXPECT_THAT(Capture(desktopHost, {"--redact"}).Text(),
                AllOf(HasSubstr(R"("Model":"NORTHLAKE N240S ATA Device")"),
                      HasSubstr(R"("FirmwareRevision":"NL2.07")"),
                      HasSubstr(R"("DeviceID":"\\\\.\\PHYSICALDRIVE2")"),
                      HasSubstr(R"("Size":"240054796800")")));
}

const std::vector<std::string> withKey{"--redact", "--redact-key", "a key"};

TEST(Capture, IsTheSameEachTimeItIsRedactedWithOneKey) {
    EXPECT_EQ(Capture(desktopHost, withKey).Text(), Capture(desktopHost, withKey).Text());
}

TEST(Capture, IsAnotherEachTimeItIsRedactedWithoutKey) {
    EXPECT_NE(Capture(desktopHost, {"--redact"}).Text(), Capture(desktopHost, {"--redact"}).Text());
    EXPECT_NE(Capture(desktopHost, withKey).Text(),
              Capture(desktopHost, {"--redact", "--redact-key", "another"}).Text());
}

/// Two machines that differ in the name and in the number of a disk, of the same lengths.
class TwoMachinesRedacted : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(TwoMachinesRedacted, Differ) {
    std::string text = Content(HostPath(desktopHost));
    const auto replace = [&text](const std::string& one, const std::string& other) {
        for (auto place = text.find(one); place != text.npos; place = text.find(one)) {
            text.replace(place, one.size(), other);
        }
    };
    replace("STUDY-DESK", "KITCH-DESK");
    replace("study-desk", "kitch-desk");
    replace("HD-WX41A60T9921", "HD-WX52B71U8810");
    const TemporaryFile other;
    std::ofstream(other.Path()) << text;
    const Capture one(desktopHost, GetParam());
    const Capture two(other.Path().string(), GetParam());
    EXPECT_EQ(two.End().exitCode, 0) << two.End().errors;
    const Ending diff = RunHere({"diff", one.File(), two.File(), "--mof", QV_SOURCE_DIR "/mof"});
    EXPECT_EQ(diff.exitCode, 4);
    EXPECT_THAT(diff.output, Not(HasSubstr("no differences")));
}

INSTANTIATE_TEST_SUITE_P(Capture, TwoMachinesRedacted,
                         testing::Values(withKey, std::vector<std::string>{"--redact"}));

TEST(Capture, OfADrillNamesTheSameDisksRedactedWithOneKey) {
    const Capture before("hosts/drill/1-degraded.json", withKey);
    const Capture after("hosts/drill/7-replaced.json", withKey);
    const std::string output =
        RunHere({"diff", before.File(), after.File(), "--mof", QV_SOURCE_DIR "/mof"}).output;
    ASSERT_THAT(output, AllOf(Not(HasSubstr("different computers")), Not(HasSubstr("disk #0")),
                              HasSubstr("\ngone: disk #1 Halden HD4000F05 (S/N "),
                              HasSubstr("\nnew: disk #1 Halden HD6000G02 (S/N "),
                              HasSubstr("600 Disk #1 Halden HD6000G02 (S/N "),
                              HasSubstr("613 Disk #1 Halden HD4000F05 (S/N ")));
    const auto numberAfter = [&output](const std::string& text) {
        return output.substr(output.find(text) + text.size(), 12);
    };
    EXPECT_NE(numberAfter("gone: disk #1 Halden HD4000F05 (S/N "),
              numberAfter("new: disk #1 Halden HD6000G02 (S/N "));
}

TEST(Capture, WithAKeyNeedsARedaction) {
    EXPECT_EQ(Capture(desktopHost, {"--redact-key", "a key"}).End().exitCode, 2);
    EXPECT_EQ(Capture(desktopHost, {"--redact", "--redact-key", ""}).End().exitCode, 2);
}

TEST(Capture, PrintsTheRowsOfEachClassAndTheSum) {
    const Capture capture(desktopHost);
    EXPECT_EQ(capture.End().exitCode, 0);
    EXPECT_THAT(capture.End().errors, IsEmpty());
    EXPECT_THAT(capture.End().output,
                AllOf(testing::StartsWith("root\\CIMv2 Win32_DiskDrive: 3 rows\n"),
                      testing::EndsWith(": 71 rows of 11 classes\n")));
}

TEST(Capture, RecordsAClassThatFailsAndEndsWithThree) {
    const Capture capture("tests/hosts/failing-disk.json");
    EXPECT_EQ(capture.End().exitCode, 3);
    EXPECT_THAT(capture.End().errors, HasSubstr("root\\CIMv2 Win32_PnPDevice: never recorded: "));
    EXPECT_THAT(capture.End().output, AllOf(HasSubstr("Win32_PnPDevice: WBEM_E_INVALID_CLASS"),
                                            HasSubstr("of 7 classes, 4 not readable\n")));
    EXPECT_THAT(capture.Text(),
                HasSubstr(R"("Win32_PnPDevice": {"fails":"WBEM_E_INVALID_CLASS"})"));
}

TEST(Capture, OfAMachineThatCannotBeReadLeavesTheFileAsItWas) {
    const TemporaryFile file;
    std::ofstream(file.Path()) << "former";
    EXPECT_EQ(Ask("none.json", {"capture", "-o", file.Path().string()}).exitCode, 1);
    EXPECT_EQ(Content(file.Path()), "former");
}

TEST(Capture, ThatCannotBeWrittenIsOneLineAndLeavesNothing) {
    const Ending run = Ask(desktopHost, {"capture", "-o", "/proc/none/x.json"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "qvsata: /proc/none/x.json: the file cannot be written\n");
}

TEST(Capture, ReplacesAFileAndLeavesNoOther) {
    const Capture capture(desktopHost);
    EXPECT_EQ(Ask(capture.File(), {"capture", "-o", capture.File()}).exitCode, 0);
    EXPECT_EQ(Published(capture.File()), Published(desktopHost));
    EXPECT_FALSE(std::filesystem::exists(capture.File() + ".part"));
}

TEST(Capture, NeedsAFile) {
    EXPECT_EQ(Ask(desktopHost, {"capture"}).exitCode, 2);
}

TEST(Capture, OfThisMachineNeedsWindows) {
    EXPECT_THAT(RunHere({"capture", "-o", "/tmp/none"}).errors, HasSubstr("needs Windows"));
}

}  // namespace
}  // namespace qv::test
