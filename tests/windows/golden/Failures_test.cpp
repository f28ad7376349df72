// What a class publishes when one of its source queries cannot be connected, is refused or breaks
// off: an empty list, or instances with less in them. The request itself succeeds.
#include "tests/support/HostBuilder.h"
#include "tests/windows/golden/FaultySource.h"

namespace qv::test {
namespace {

using Texts = std::vector<std::string>;

/// What is published when one of a class's queries fails.
struct QueryFailure {
    const char* query;  ///< what follows "SELECT * FROM ", or the query itself
    Texts refused;      ///< when it cannot be connected or submitted
    ULONG rows;         ///< how many of its rows come when it breaks off
    Texts brokenOff;    ///< when it breaks off after them
};

/// The failures of a class's queries, in the order in which they are made.
struct ClassFailures {
    const char* className;
    std::vector<const char*> telling;  ///< the properties that show what an instance is worth
    Texts whole;                       ///< when no query fails: those properties, joined by "|"
    std::vector<QueryFailure> queries;
};

constexpr const char* disks = "Win32_DiskDrive";
constexpr const char* media = "Win32_PhysicalMedia";
constexpr const char* partitions = "Win32_DiskPartition";
constexpr const char* partitionLinks = "Win32_DiskDriveToDiskPartition";
constexpr const char* controllers = "Win32_IDEController";
constexpr const char* controllerLinks = "Win32_IDEControllerDevice";
constexpr const char* controllerEntity =
    R"(ASSOCIATORS OF {Win32_IDEController.DeviceID="PCI\\VEN_1&DEV_2&REV_03\\4"} )"
    "where assocclass=Win32_PnPDevice";
constexpr const char* controllerDriver =
    R"(ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCI\\VEN_1&DEV_2&REV_03\\4"} )"
    "where assocclass=Win32_SystemDriverPNPEntity";
constexpr const char* channelEntity =
    R"(ASSOCIATORS OF {Win32_IDEController.DeviceID="PCIIDE\\IDECHANNEL\\5&0"} )"
    "where assocclass=Win32_PnPDevice";
constexpr const char* channelDriver =
    R"(ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCIIDE\\IDECHANNEL\\5&0"} )"
    "where assocclass=Win32_SystemDriverPNPEntity";

// Disk A failed and hangs on the channel, disk B hangs on the controller itself.
service::RecordedHost TwoDisks() {
    HostBuilder host;
    host.Controller(R"(PCI\VEN_1&DEV_2&REV_03\4)").Driver("pciide");
    host.Channel(R"(PCIIDE\IDECHANNEL\5&0)").Driver("atapi");
    host.Disk(0, R"(IDE\DISKA\6&0)", {{"Status", "Error"}}).BehindChannel().Media("SA").Partition();
    host.Disk(1, R"(IDE\DISKB\6&1)").BehindController().Media("SB").Partition();
    return host.Build();
}

// The texts by which the instances are told.
const std::string a = "IDE&DISKA&6&0";
const std::string b = "IDE&DISKB&6&1";
const std::string controller = "PCI&VEN_1&DEV_2&REV_03&4";
const std::string channel = "PCIIDE&IDECHANNEL&5&0";
const std::string to = " connected to ";
const std::string none = "(none)";

/// A class of controllers, which has one query: of its two rows the first is a controller.
ClassFailures OfControllers(const char* className, const char* key) {
    return {className, {key}, {controller}, {{controllers, {}, 1, {controller}}}};
}

/// A class of disks with the serial number from the rows of media, which each disk asks for anew.
ClassFailures WithSerialNumbers(const char* className, const char* key) {
    const Texts whole{a + "|SA", b + "|SB"};
    return {className,
            {key, "SerialNumber"},
            whole,
            {{disks, {}, 1, {a + "|SA"}},
             {media, {a + "|" + none, b + "|SB"}, 1, whole},
             {media, {a + "|SA", b + "|" + none}, 1, {a + "|SA", b + "|" + none}}}};
}

/// A class of controller software, one instance for the driver of each family.
ClassFailures OfDrivers(const char* className) {
    const std::string prefix = std::string("QV:") + className + ":";
    const Texts both{prefix + controller, prefix + channel};
    const Texts first{both[0]};
    const Texts second{both[1]};
    return {className,
            {"InstanceID"},
            both,
            {{controllers, {}, 1, first},
             {controllerEntity, second, 0, second},
             {controllerDriver, second, 0, second},
             {channelEntity, first, 0, first},
             {channelDriver, first, 0, first}}};
}

const ClassFailures failures[] = {
    OfControllers("QV_SATAPortController", "DeviceID"),
    WithSerialNumbers("QV_SATADiskDrive", "DeviceID"),
    {"QV_SATAStorageExtent",
     {"DeviceID", "Name", "BlockSize", "PrimaryPartition"},
     {a + "|Disk #0, Partition #0|512|1", b + "|Disk #1, Partition #0|512|1"},
     {{disks, {}, 1, {a + "|Disk #0, Partition #0|512|1"}},
      {partitionLinks,
       {a + "|(none)|(none)|(none)", b + "|(none)|(none)|(none)"},
       1,
       {a + "|Disk #0, Partition #0|512|1", b + "|(none)|(none)|(none)"}},
      {partitions,
       {a + "|(none)|(none)|(none)", b + "|(none)|(none)|(none)"},
       1,
       {a + "|Disk #0, Partition #0|512|1", b + "|(none)|(none)|(none)"}}}},
    WithSerialNumbers("QV_SATADiskDriveFW", "InstanceID"),
    OfControllers("QV_SATAPortControllerPhysicalPackage", "Tag"),
    WithSerialNumbers("QV_SATADiskPhysicalPackage", "Tag"),
    // Its query brings a second request into the library, whose queries follow.
    {"QV_SATAStorageCollection",
     {"GroupOperationalStatus", "GroupStatusDescriptions"},
     {R"({2}|{"OK"})"},
     {{"QV_SATADiskDrive", {}, 1, {R"({6}|{"Error"})"}},
      {disks, {R"({2}|{"OK"})"}, 1, {R"({6}|{"Error"})"}},
      {media, {R"({2}|{"OK"})"}, 1, {R"({2}|{"OK"})"}},
      {media, {R"({2}|{"OK"})"}, 1, {R"({2}|{"OK"})"}}}},
    {"QV_SATADiskLocation",
     {"Name", "PhysicalPosition"},
     {a + "|ATA Channel", b + "|Test controller"},
     {{disks, {}, 1, {a + "|ATA Channel"}},
      {controllerLinks, {a + "|", b + "|"}, 2, {a + "|ATA Channel", b + "|"}},
      {controllers, {a + "|", b + "|"}, 1, {a + "|", b + "|Test controller"}}}},
    OfControllers("QV_SATAControllerLocation", "Name"),
    OfControllers("QV_SATAPortControllerProduct", "Name"),
    // The first list of controllers is walked for channels, the second is searched for parents.
    {"QV_SATALogicalPort",
     {"DeviceID"},
     {channel + to + controller},
     {{controllers, {}, 1, {}},
      {controllers, {}, 1, {channel + to + controller}},
      {controllerLinks, {channel + to}, 0, {channel + to}}}},
    {"QV_ISATAProtocolEndpoint", {"Name"}, {channel}, {{controllers, {}, 1, {}}}},
    {"QV_TSATAProtocolEndpoint",
     {"Name"},
     {a + to + channel, b + to + controller},
     {{disks, {}, 1, {a + to + channel}},
      {controllerLinks, {none, none}, 2, {a + to + channel, none}},
      {controllers, {none, none}, 1, {none, b + to + controller}}}},
    OfDrivers("QV_SATAPortControllerDriver"),
    OfDrivers("QV_SATAPortControllerFW"),
    OfDrivers("QV_SATAPortControllerBIOS"),
    {"QV_WinComputerSystem", {"Name"}, {"srv01.example.org"}, {}},
};

std::string ValueOf(const PublishedInstance& instance, const std::string& name) {
    const auto found = std::ranges::find(instance.properties, name, &PublishedProperty::name);
    if (found == instance.properties.end()) {
        return none;
    }
    const auto* text = std::get_if<std::string>(&found->value);
    return text == nullptr ? ValueText(found->value) : *text;
}

std::string WholeQuery(const std::string& query) {
    const std::string nameSpace = query.starts_with("QV_") ? R"(root\QVQ: )" : R"(root\CIMv2: )";
    return nameSpace + (query.starts_with("ASSOCIATORS") ? query : "SELECT * FROM " + query);
}

class Failures : public testing::TestWithParam<ClassFailures> {
protected:
    Texts Publish(std::optional<Fault> fault = {}) {
        Texts told;
        for (const auto& instance : host_.Publish(GetParam().className, fault).instances) {
            std::string text;
            for (const char* name : GetParam().telling) {
                text += text.empty() ? "" : "|";
                text += ValueOf(instance, name);
            }
            told.push_back(text);
        }
        return told;
    }

    FaultyHost host_{TwoDisks()};
};

TEST_P(Failures, OfNoQueryLeaveTheWhole) {
    EXPECT_EQ(Publish(), GetParam().whole);
    Texts asked;
    for (const QueryFailure& one : GetParam().queries) {
        asked.push_back(WholeQuery(one.query));
    }
    EXPECT_EQ(host_.Asked(), asked);
}

TEST_P(Failures, OfAConnectionOrASubmission) {
    for (std::size_t turn = 0; const QueryFailure& one : GetParam().queries) {
        SCOPED_TRACE(std::to_string(turn) + ": " + one.query);
        EXPECT_EQ(Publish(Fault{turn, Stage::connecting}), one.refused);
        EXPECT_EQ(Publish(Fault{turn, Stage::submitting}), one.refused);
        ++turn;
    }
}

TEST_P(Failures, InTheMiddleOfTheRowsKeepWhatWasRead) {
    for (std::size_t turn = 0; const QueryFailure& one : GetParam().queries) {
        SCOPED_TRACE(std::to_string(turn) + ": " + one.query);
        EXPECT_EQ(Publish(Fault{turn++, Stage::reading, one.rows}), one.brokenOff);
    }
}

TEST(PartitionQuery, IsNotMadeWhenThatOfTheLinksFailed) {
    FaultyHost host(TwoDisks());
    host.Publish("QV_SATAStorageExtent", Fault{1, Stage::submitting});
    EXPECT_EQ(host.Asked(), (Texts{WholeQuery(disks), WholeQuery(partitionLinks)}));
}

INSTANTIATE_TEST_SUITE_P(EachClass, Failures, testing::ValuesIn(failures),
                         [](const auto& one) { return std::string(one.param.className + 3); });

}  // namespace
}  // namespace qv::test
