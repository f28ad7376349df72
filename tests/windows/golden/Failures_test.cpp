// What a class publishes when one of its source queries cannot be connected, is refused or breaks
// off: an empty list, or instances with less in them. The request itself succeeds.
#include <map>
#include <set>

#include "tests/support/HostBuilder.h"
#include "tests/windows/golden/FaultySource.h"

namespace qv::test {
namespace {

using Texts = std::vector<std::string>;
using Names = std::set<std::string>;
using Changes = std::map<std::string, service::CimValue>;

/// An instance that is published though a query failed: all of it but for some properties.
struct Kept {
    std::size_t place;  ///< among the instances that are published when no query fails
    Names without{};    ///< the properties that it lacks
    Changes with{};     ///< the properties that have another value
};
using Instances = std::vector<Kept>;

/// What is published when one of a class's queries fails.
struct QueryFailure {
    const char* query;    ///< what follows "SELECT * FROM ", or the query itself
    Instances refused;    ///< when it cannot be connected or submitted
    ULONG rows;           ///< how many of its rows come when it breaks off
    Instances brokenOff;  ///< when it breaks off after them
};

/// The failures of a class's queries, in the order in which they are made.
struct ClassFailures {
    const char* className;
    std::vector<const char*> telling;  ///< the properties that show which instance is which
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

// The instances that are published when no query fails.
const Kept first{0};
const Kept second{1};

const Names partitionProperties{
    "Caption",          "Description",     "Name", "BlockSize", "Size", "Bootable", "BootPartition",
    "PrimaryPartition", "ConsumableBlocks"};
const Changes noPosition{{"PhysicalPosition", ""},
                         {"Description", "Standard ATA Disk Drive at ,"},
                         {"ElementName", "Standard ATA Disk Drive at ,"}};
const Changes groupFailed{{"GroupOperationalStatus", std::vector<std::int64_t>{6}},
                          {"GroupStatusDescriptions", std::vector<std::string>{"Error"}}};

/// A class of controllers, which has one query: of its two rows the first is a controller.
ClassFailures OfControllers(const char* className, const char* key) {
    return {className, {key}, {controller}, {{controllers, {}, 1, {first}}}};
}

/// A class of disks with properties from the rows of media, which each disk asks for anew.
ClassFailures WithMedia(const char* className, const char* key, const Names& ofMedia) {
    return {className,
            {key, "SerialNumber"},
            {a + "|SA", b + "|SB"},
            {{disks, {}, 1, {first}},
             {media, {{0, ofMedia}, second}, 1, {first, second}},
             {media, {first, {1, ofMedia}}, 1, {first, {1, ofMedia}}}}};
}

/// A class of controller software, one instance for the driver of each family.
ClassFailures OfDrivers(const char* className) {
    const std::string prefix = std::string("QV:") + className + ":";
    return {className,
            {"InstanceID"},
            {prefix + controller, prefix + channel},
            {{controllers, {}, 1, {first}},
             {controllerEntity, {second}, 0, {second}},
             {controllerDriver, {second}, 0, {second}},
             {channelEntity, {first}, 0, {first}},
             {channelDriver, {first}, 0, {first}}}};
}

const ClassFailures failures[] = {
    OfControllers("QV_SATAPortController", "DeviceID"),
    WithMedia("QV_SATADiskDrive", "DeviceID", {"SerialNumber"}),
    {"QV_SATAStorageExtent",
     {"DeviceID", "Name", "BlockSize", "PrimaryPartition"},
     {a + "|Disk #0, Partition #0|512|1", b + "|Disk #1, Partition #0|512|1"},
     {{disks, {}, 1, {first}},
      {partitionLinks,
       {{0, partitionProperties}, {1, partitionProperties}},
       1,
       {first, {1, partitionProperties}}},
      {partitions,
       {{0, partitionProperties}, {1, partitionProperties}},
       1,
       {first, {1, partitionProperties}}}}},
    WithMedia("QV_SATADiskDriveFW", "InstanceID", {"SerialNumber"}),
    OfControllers("QV_SATAPortControllerPhysicalPackage", "Tag"),
    WithMedia("QV_SATADiskPhysicalPackage", "Tag", {"SerialNumber", "Name"}),
    // Its query brings a second request into the library, whose queries follow.
    {"QV_SATAStorageCollection",
     {"GroupOperationalStatus", "GroupStatusDescriptions"},
     {R"({2}|{"OK"})"},
     {{"QV_SATADiskDrive", {}, 1, {{0, {}, groupFailed}}},
      {disks, {first}, 1, {{0, {}, groupFailed}}},
      {media, {first}, 1, {first}},
      {media, {first}, 1, {first}}}},
    {"QV_SATADiskLocation",
     {"Name", "PhysicalPosition"},
     {a + "|ATA Channel", b + "|Test controller"},
     {{disks, {}, 1, {first}},
      {controllerLinks,
       {{0, {}, noPosition}, {1, {}, noPosition}},
       2,
       {first, {1, {}, noPosition}}},
      {controllers, {{0, {}, noPosition}, {1, {}, noPosition}}, 1, {{0, {}, noPosition}, second}}}},
    OfControllers("QV_SATAControllerLocation", "Name"),
    OfControllers("QV_SATAPortControllerProduct", "Name"),
    // The first list of controllers is walked for channels, the second is searched for parents.
    {"QV_SATALogicalPort",
     {"DeviceID"},
     {channel + to + controller},
     {{controllers, {}, 1, {}},
      {controllers, {}, 1, {first}},
      {controllerLinks,
       {{0, {}, {{"DeviceID", channel + to}}}},
       0,
       {{0, {}, {{"DeviceID", channel + to}}}}}}},
    {"QV_ISATAProtocolEndpoint", {"Name"}, {channel}, {{controllers, {}, 1, {}}}},
    {"QV_TSATAProtocolEndpoint",
     {"Name"},
     {a + to + channel, b + to + controller},
     {{disks, {}, 1, {first}},
      {controllerLinks, {{0, {"Name"}}, {1, {"Name"}}}, 2, {first, {1, {"Name"}}}},
      {controllers, {{0, {"Name"}}, {1, {"Name"}}}, 1, {{0, {"Name"}}, second}}}},
    OfDrivers("QV_SATAPortControllerDriver"),
    OfDrivers("QV_SATAPortControllerFW"),
    OfDrivers("QV_SATAPortControllerBIOS"),
    {"QV_WinComputerSystem", {"Name"}, {"srv01.example.org"}, {}},
};

std::string ValueOf(const PublishedInstance& instance, const std::string& name) {
    const auto found = std::ranges::find(instance.properties, name, &PublishedProperty::name);
    if (found == instance.properties.end()) {
        return "(none)";
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
    PublishedInstances Publish(std::optional<Fault> fault = {}) {
        return host_.Publish(GetParam().className, fault);
    }

    /// Every property of the instances, as text.
    static std::string Whole(const PublishedInstances& published) {
        return GoldenText({published}, NamespacePrefix("SRV01"));
    }

    /// Those of the sound instances that are kept, as they then are.
    std::string WholeOf(const Instances& kept) const {
        PublishedInstances left{sound_.className, {}};
        for (const Kept& one : kept) {
            left.instances.push_back(sound_.instances.at(one.place));
            auto& properties = left.instances.back().properties;
            std::erase_if(properties, [&one](const PublishedProperty& property) {
                return one.without.contains(property.name);
            });
            for (PublishedProperty& property : properties) {
                const auto changed = one.with.find(property.name);
                property.value = changed == one.with.end() ? property.value : changed->second;
            }
        }
        return Whole(left);
    }

    FaultyHost host_{TwoDisks()};
    PublishedInstances sound_ = Publish();
};

TEST_P(Failures, OfNoQueryLeaveTheWhole) {
    Texts told;
    for (const PublishedInstance& instance : sound_.instances) {
        std::string text;
        for (const char* name : GetParam().telling) {
            text += text.empty() ? "" : "|";
            text += ValueOf(instance, name);
        }
        told.push_back(text);
    }
    EXPECT_EQ(told, GetParam().whole);
    Texts asked;
    for (const QueryFailure& one : GetParam().queries) {
        asked.push_back(WholeQuery(one.query));
    }
    EXPECT_EQ(host_.Asked(), asked);
}

TEST_P(Failures, OfAConnectionOrASubmission) {
    for (std::size_t turn = 0; const QueryFailure& one : GetParam().queries) {
        SCOPED_TRACE(std::to_string(turn) + ": " + one.query);
        const std::string expected = WholeOf(one.refused);
        EXPECT_EQ(Whole(Publish(Fault{turn, Stage::connecting})), expected);
        EXPECT_EQ(Whole(Publish(Fault{turn, Stage::submitting})), expected);
        ++turn;
    }
}

TEST_P(Failures, InTheMiddleOfTheRowsKeepWhatWasRead) {
    for (std::size_t turn = 0; const QueryFailure& one : GetParam().queries) {
        SCOPED_TRACE(std::to_string(turn) + ": " + one.query);
        EXPECT_EQ(Whole(Publish(Fault{turn++, Stage::reading, one.rows})), WholeOf(one.brokenOff));
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
