#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "qvsata/cim/CimValue.h"
#include "tests/support/HostBuilder.h"

// What each class publishes on one host if one of its queries fails.

namespace qv::test {

using Lines = std::vector<std::string>;
using Names = std::set<std::string>;
using Changes = std::map<std::string, service::CimValue>;

/// An instance that is published although a query failed, and how it differs.
struct Kept {
    std::size_t place;  ///< among the instances published without a failure
    Names without{};    ///< the properties that it lacks
    Changes with{};     ///< the properties that have another value
};
using Instances = std::vector<Kept>;

/// What is published if one of a class's queries fails.
struct QueryFailure {
    const char* query;    ///< what follows "SELECT * FROM ", or the query itself
    Instances refused;    ///< published if it cannot be connected or submitted
    unsigned long rows;   ///< how many of its rows arrive before it breaks off
    Instances brokenOff;  ///< published if it breaks off after them
};

/// The failures of a class's queries, in the order of the queries.
struct ClassFailures {
    const char* className;
    std::vector<const char*> telling;  ///< the properties that identify the instances
    Lines whole;                       ///< without a failure: those properties, joined by "|"
    std::vector<QueryFailure> queries;
};

inline constexpr const char* disks = "Win32_DiskDrive";
inline constexpr const char* media = "Win32_PhysicalMedia";
inline constexpr const char* partitions = "Win32_DiskPartition";
inline constexpr const char* partitionLinks = "Win32_DiskDriveToDiskPartition";
inline constexpr const char* controllers = "Win32_IDEController";
inline constexpr const char* controllerLinks = "Win32_IDEControllerDevice";
inline constexpr const char* controllerEntity =
    R"(ASSOCIATORS OF {Win32_IDEController.DeviceID="PCI\\VEN_1&DEV_2&REV_03\\4"} )"
    "where assocclass=Win32_PnPDevice";
inline constexpr const char* controllerDriver =
    R"(ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCI\\VEN_1&DEV_2&REV_03\\4"} )"
    "where assocclass=Win32_SystemDriverPNPEntity";
inline constexpr const char* channelEntity =
    R"(ASSOCIATORS OF {Win32_IDEController.DeviceID="PCIIDE\\IDECHANNEL\\5&0"} )"
    "where assocclass=Win32_PnPDevice";
inline constexpr const char* channelDriver =
    R"(ASSOCIATORS OF {Win32_PnPEntity.DeviceID="PCIIDE\\IDECHANNEL\\5&0"} )"
    "where assocclass=Win32_SystemDriverPNPEntity";

// Disk A fails and is on the channel; disk B is on the controller itself.
inline service::RecordedHost TwoDisks() {
    HostBuilder host;
    host.Controller(R"(PCI\VEN_1&DEV_2&REV_03\4)").Driver("pciide");
    host.Channel(R"(PCIIDE\IDECHANNEL\5&0)").Driver("atapi");
    host.Disk(0, R"(IDE\DISKA\6&0)", {{"Status", "Error"}}).BehindChannel().Media("SA").Partition();
    host.Disk(1, R"(IDE\DISKB\6&1)").BehindController().Media("SB").Partition();
    return host.Build();
}

// The texts that identify the instances.
inline const std::string diskA = "IDE&DISKA&6&0";
inline const std::string diskB = "IDE&DISKB&6&1";
inline const std::string controller = "PCI&VEN_1&DEV_2&REV_03&4";
inline const std::string channel = "PCIIDE&IDECHANNEL&5&0";
inline const std::string to = " connected to ";

// The instances published without a failure.
inline const Kept first{0};
inline const Kept second{1};

inline const Names partitionProperties{
    "Caption",          "Description",     "Name", "BlockSize", "Size", "Bootable", "BootPartition",
    "PrimaryPartition", "ConsumableBlocks"};
inline const Changes noPosition{{"PhysicalPosition", ""},
                                {"Description", "Standard ATA Disk Drive at ,"},
                                {"ElementName", "Standard ATA Disk Drive at ,"}};
inline const Changes groupFailed{{"GroupOperationalStatus", std::vector<std::int64_t>{6}},
                                 {"GroupStatusDescriptions", std::vector<std::string>{"Error"}}};

/// A class of controllers with one query, whose first of two rows is a controller.
inline ClassFailures OfControllers(const char* className, const char* key) {
    return {className, {key}, {controller}, {{controllers, {}, 1, {first}}}};
}

/// A class of disks with properties from the media rows, which are queried for each disk.
inline ClassFailures WithMedia(const char* className, const char* key, const Names& ofMedia) {
    return {className,
            {key, "SerialNumber"},
            {diskA + "|SA", diskB + "|SB"},
            {{disks, {}, 1, {first}},
             {media, {{0, ofMedia}, second}, 1, {first, second}},
             {media, {first, {1, ofMedia}}, 1, {first, {1, ofMedia}}}}};
}

/// A class of controller software, one instance for each family's driver.
inline ClassFailures OfDrivers(const char* className) {
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

inline const ClassFailures failures[] = {
    OfControllers("QV_SATAPortController", "DeviceID"),
    WithMedia("QV_SATADiskDrive", "DeviceID", {"SerialNumber"}),
    {"QV_SATAStorageExtent",
     {"DeviceID", "Name", "BlockSize", "PrimaryPartition"},
     {diskA + "|Disk #0, Partition #0|512|1", diskB + "|Disk #1, Partition #0|512|1"},
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
    // Its query causes a second request to the library, whose queries follow.
    {"QV_SATAStorageCollection",
     {"GroupOperationalStatus", "GroupStatusDescriptions"},
     {R"({2}|{"OK"})"},
     {{"QV_SATADiskDrive", {}, 1, {{0, {}, groupFailed}}},
      {disks, {first}, 1, {{0, {}, groupFailed}}},
      {media, {first}, 1, {first}},
      {media, {first}, 1, {first}}}},
    {"QV_SATADiskLocation",
     {"Name", "PhysicalPosition"},
     {diskA + "|ATA Channel", diskB + "|Test controller"},
     {{disks, {}, 1, {first}},
      {controllerLinks,
       {{0, {}, noPosition}, {1, {}, noPosition}},
       2,
       {first, {1, {}, noPosition}}},
      {controllers, {{0, {}, noPosition}, {1, {}, noPosition}}, 1, {{0, {}, noPosition}, second}}}},
    OfControllers("QV_SATAControllerLocation", "Name"),
    OfControllers("QV_SATAPortControllerProduct", "Name"),
    // The first list of controllers is searched for channels, the second for parents.
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
     {diskA + to + channel, diskB + to + controller},
     {{disks, {}, 1, {first}},
      {controllerLinks, {{0, {"Name"}}, {1, {"Name"}}}, 2, {first, {1, {"Name"}}}},
      {controllers, {{0, {"Name"}}, {1, {"Name"}}}, 1, {{0, {"Name"}}, second}}}},
    OfDrivers("QV_SATAPortControllerDriver"),
    OfDrivers("QV_SATAPortControllerFW"),
    OfDrivers("QV_SATAPortControllerBIOS"),
    {"QV_WinComputerSystem", {"Name"}, {"srv01.example.org"}, {}},
};

}  // namespace qv::test
