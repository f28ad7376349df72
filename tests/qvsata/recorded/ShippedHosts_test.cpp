// The recorded hosts in hosts/ and the recordings of real machines in tests/hosts/.
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <utility>

#include "SourceTree.h"
#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/recorded/HostFile.h"
#include "tests/support/RecordedAnswers.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;

const std::filesystem::path shippedHosts = std::filesystem::path(QV_SOURCE_DIR) / "hosts";
const std::filesystem::path recordings = std::filesystem::path(QV_SOURCE_DIR) / "tests/hosts";

std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".json") {
            files.push_back(entry.path());
        }
    }
    return files;
}

ObjectList RowsOf(const RecordedHost& host, std::string_view className,
                  std::string_view nameSpace = R"(root\CIMv2)") {
    return Ask(host, nameSpace, "SELECT * FROM " + std::string(className)).objects;
}

std::vector<std::string> TextsOf(const ObjectList& rows, std::string_view name) {
    std::vector<std::string> texts;
    for (const ObjectPtr& row : rows) {
        const auto value = ValueOf(*row, name).value_or(CimValue{});
        texts.push_back(std::holds_alternative<std::string>(value) ? std::get<std::string>(value)
                                                                   : "");
    }
    return texts;
}

bool IsRecorded(const RecordedHost& host, const ObjectPath& path) {
    const RecordedClass* found = host.FindNamespace(R"(root\CIMv2)")->Find(path.className);
    return found != nullptr && found->Find(path) != nullptr;
}

// Returns the references of a host to rows that do not exist.
std::vector<std::string> DanglingReferences(const RecordedHost& host) {
    std::vector<std::string> dangling;
    for (const char* name : {"Win32_DiskDriveToDiskPartition", "Win32_IDEControllerDevice",
                             "Win32_PnPDevice", "Win32_SystemDriverPNPEntity"}) {
        for (const char* role : {"Antecedent", "Dependent", "SameElement", "SystemElement"}) {
            for (const std::string& text : TextsOf(RowsOf(host, name), role)) {
                const auto path = ParseObjectPath(text);
                if (path && !IsRecorded(host, *path)) {
                    dangling.push_back(text);
                }
            }
        }
    }
    return dangling;
}

// Returns the paths that several rows of a class share.
std::vector<std::string> RepeatedPaths(const RecordedHost& host) {
    std::set<std::string> seen;
    std::vector<std::string> repeated;
    for (const RecordedNamespace& nameSpace : host.Namespaces()) {
        for (const RecordedClass& recorded : nameSpace.Classes()) {
            for (const std::string& path :
                 TextsOf(RowsOf(host, recorded.Name(), nameSpace.Name()), "__PATH")) {
                if (path.empty() || !seen.insert(path).second) {
                    repeated.push_back(recorded.Name() + ": " + path);
                }
            }
        }
    }
    return repeated;
}

// Returns the recordings in the lines of a folder's README.md that begin with `before`, up to the
// next backtick.
std::vector<std::string> ListedBehind(std::string_view before,
                                      const std::filesystem::path& folder = shippedHosts) {
    std::vector<std::string> names;
    std::ifstream readme(folder / "README.md");
    for (std::string line; std::getline(readme, line);) {
        if (!line.starts_with(before)) {
            continue;
        }
        std::string name =
            line.substr(before.size(), line.find('`', before.size()) - before.size());
        if (name.ends_with(".json")) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& file : FilesIn(folder)) {
        names.push_back(file.filename().string());
    }
    return names;
}

TEST(ShippedHosts, AreThoseThatTheReadmeLists) {
    EXPECT_THAT(NamesIn(shippedHosts), UnorderedElementsAreArray(ListedBehind("- `")));
    EXPECT_THAT(NamesIn(shippedHosts), SizeIs(6));
}

TEST(ShippedHosts, OfTheDrillAreThoseOfTheReadmesTable) {
    EXPECT_THAT(NamesIn(shippedHosts / "drill"), UnorderedElementsAreArray(ListedBehind("| `")));
    EXPECT_THAT(NamesIn(shippedHosts / "drill"), SizeIs(8));
}

class ShippedHostsTest : public testing::TestWithParam<const char*> {
protected:
    RecordedHost host_ = ReadHostFile(shippedHosts / GetParam());
};

TEST_P(ShippedHostsTest, HoldsEverySourceClass) {
    EXPECT_THAT(
        NamesOf(host_.FindNamespace(R"(root\CIMv2)")->Classes()),
        UnorderedElementsAre("Win32_DiskDrive", "Win32_PhysicalMedia", "Win32_DiskPartition",
                             "Win32_DiskDriveToDiskPartition", "Win32_IDEController",
                             "Win32_IDEControllerDevice", "Win32_PnPEntity", "Win32_PnPDevice",
                             "Win32_SystemDriver", "Win32_SystemDriverPNPEntity"));
    EXPECT_THAT(NamesOf(host_.FindNamespace(R"(root\wmi)")->Classes()),
                ElementsAre("MSStorageDriver_FailurePredictStatus"));
}

TEST_P(ShippedHostsTest, IsWholeAndWithoutRepetition) {
    EXPECT_THAT(DanglingReferences(host_), IsEmpty());
    EXPECT_THAT(RepeatedPaths(host_), IsEmpty());
}

TEST_P(ShippedHostsTest, HasPhysicalMediaOfItsDisksOnly) {
    EXPECT_THAT(TextsOf(RowsOf(host_, "Win32_DiskDrive"), "DeviceID"),
                testing::IsSupersetOf(TextsOf(RowsOf(host_, "Win32_PhysicalMedia"), "Tag")));
}

template <typename Path>
std::string HostName(const testing::TestParamInfo<Path>& host) {
    std::string name = std::filesystem::path(host.param).stem().string();
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, ShippedHostsTest,
                         testing::Values("ahci-desktop.json", "every-driver-family.json",
                                         "legacy-ide.json", "mixed-buses-failing.json",
                                         "twelve-disk-server.json", "two-ahci-controllers.json"),
                         HostName<const char*>);

INSTANTIATE_TEST_SUITE_P(Drill, ShippedHostsTest,
                         testing::Values("drill/0-healthy.json", "drill/1-degraded.json",
                                         "drill/2-predicted.json", "drill/3-failed.json",
                                         "drill/4-recovered.json", "drill/5-no-contact.json",
                                         "drill/6-pulled.json", "drill/7-replaced.json"),
                         HostName<const char*>);

TEST(ShippedHosts, ShowAFailingDisk) {
    const auto host = ReadHostFile(shippedHosts / "mixed-buses-failing.json");
    EXPECT_THAT(TextsOf(RowsOf(host, "Win32_DiskDrive"), "InterfaceType"),
                ElementsAre("IDE", "IDE", "IDE", "SCSI", "USB"));
    EXPECT_THAT(TextsOf(RowsOf(host, "Win32_DiskDrive"), "Status"),
                ElementsAre("Pred Fail", "OK", "Degraded", "OK", "OK"));
    const auto predicting =
        Ask(host, R"(root\wmi)",
            "SELECT * FROM MSStorageDriver_FailurePredictStatus WHERE PredictFailure = TRUE");
    EXPECT_THAT(TextsOf(predicting.objects, "InstanceName"),
                ElementsAre(R"(SCSI\Disk&Ven_Halden&Prod_HD4000F05\4&35e81d6c&0&020000_0)"));
}

TEST(ShippedHosts, LeadFromAControllerToItsDriver) {
    const auto host = ReadHostFile(shippedHosts / "ahci-desktop.json");
    const auto entities = Ask(
        host, R"(root\CIMv2)",
        R"(ASSOCIATORS OF {Win32_IDEController.DeviceID="PCI\\VEN_1AF7&DEV_3A22&SUBSYS_82D41043&REV_05\\3&2411E6FE&0&FA"} where assocclass=Win32_PnPDevice)");
    ASSERT_EQ(entities.objects.size(), 1U);
    const auto drivers = Ask(host, R"(root\CIMv2)",
                             "ASSOCIATORS OF {" + TextsOf(entities.objects, "__RELPATH").front() +
                                 "} where assocclass=Win32_SystemDriverPNPEntity");
    EXPECT_THAT(TextsOf(drivers.objects, "Name"), ElementsAre("msahci"));
}

TEST(ShippedHosts, RecordingsAreThoseThatTheReadmeLists) {
    EXPECT_THAT(NamesIn(recordings), UnorderedElementsAreArray(ListedBehind("| `", recordings)));
    EXPECT_THAT(NamesIn(recordings), SizeIs(8));
}

class ShippedHostsRecordings : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(ShippedHostsRecordings, AreReadWithoutALossOfRows) {
    const RecordedHost host = ReadHostFile(GetParam());
    EXPECT_FALSE(host.Computer().dnsFullyQualified.empty());
    EXPECT_FALSE(RowsOf(host, "Win32_DiskDrive").empty());
    EXPECT_THAT(RepeatedPaths(host), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(RealMachines, ShippedHostsRecordings,
                         testing::ValuesIn(FilesIn(recordings)), HostName<std::filesystem::path>);

}  // namespace
}  // namespace qv::test
