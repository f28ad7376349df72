#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "qvsata/recorded/RecordedHost.h"

namespace qv::test {

/// Builds a recorded host in a test's own words. Each disk, partition, controller and so on has the
/// properties of a usual one; the test's properties replace or complete them. Dependent objects
/// ("the disk's partition", "the controller's channel") refer to the owner that was named last.
///
///     HostBuilder host;
///     host.Controller(R"(PCI\VEN_8086&REV_02\3)").Channel(R"(PCIIDE\IDECHANNEL\4&0)");
///     host.Disk(0, R"(IDE\DISKX\5&1)").BehindChannel().Media("S1").Partition().Partition();
class HostBuilder {
public:
    using Properties = service::RowProperties;

    explicit HostBuilder(const std::string& server = "SRV01")
        : server_(server), host_({server, FoldedName() + ".example.org", FoldedName(), server}) {
        for (const char* name : {"Win32_DiskDrive", "Win32_PhysicalMedia", "Win32_DiskPartition",
                                 "Win32_DiskDriveToDiskPartition", "Win32_IDEController",
                                 "Win32_IDEControllerDevice", "Win32_PnPEntity", "Win32_PnPDevice",
                                 "Win32_SystemDriver", "Win32_SystemDriverPNPEntity"}) {
            host_.DefineClass(cimv2, name);
        }
        host_.DefineClass(wmi, "MSStorageDriver_FailurePredictStatus");
    }

    /// A disk \\.\PHYSICALDRIVEindex of interface type IDE, and its plug-and-play entity.
    HostBuilder& Disk(int index, const std::string& pnpDeviceId, Properties given = {}) {
        diskId_ = R"(\\.\PHYSICALDRIVE)" + std::to_string(index);
        diskIndex_ = index;
        partitions_ = 0;
        diskPnpId_ = pnpDeviceId;
        Add("Win32_DiskDrive",
            {{"DeviceID", diskId_},
             {"Name", diskId_},
             {"Index", std::int64_t{index}},
             {"Caption", "Test disk"},
             {"Model", "Test disk"},
             {"Description", "Disk drive"},
             {"Manufacturer", "(Standard disk drives)"},
             {"InterfaceType", "IDE"},
             {"Capabilities", std::vector<std::int64_t>{3, 4, 10}},
             {"PNPDeviceID", pnpDeviceId},
             {"FirmwareRevision", "FW1"},
             {"BytesPerSector", std::int64_t{512}},
             {"SectorsPerTrack", std::int64_t{63}},
             {"TracksPerCylinder", std::int64_t{255}},
             {"TotalHeads", std::int64_t{255}},
             {"TotalCylinders", "60801"},
             {"TotalSectors", "976768065"},
             {"TotalTracks", "15504255"},
             {"Size", "500105249280"},
             {"Partitions", std::int64_t{0}},
             {"SCSIPort", std::int64_t{0}},
             {"SCSIBus", std::int64_t{0}},
             {"SCSITargetId", std::int64_t{0}},
             {"SCSILogicalUnit", std::int64_t{0}},
             {"Status", "OK"}},
            std::move(given));
        return Entity(pnpDeviceId, "Test disk");
    }

    /// The disk's row of physical media.
    HostBuilder& Media(service::CimValue serialNumber, Properties given = {}) {
        return Add("Win32_PhysicalMedia",
                   {{"Tag", diskId_}, {"SerialNumber", std::move(serialNumber)}}, std::move(given));
    }

    /// The disk's next partition, and the link between them.
    HostBuilder& Partition(Properties given = {}) {
        const std::string id =
            "Disk #" + std::to_string(diskIndex_) + ", Partition #" + std::to_string(partitions_);
        Add("Win32_DiskPartition",
            {{"DeviceID", id},
             {"Name", id},
             {"Caption", id},
             {"Description", "Installable File System"},
             {"Type", "Installable File System"},
             {"DiskIndex", std::int64_t{diskIndex_}},
             {"Index", std::int64_t{partitions_}},
             {"BlockSize", "512"},
             {"NumberOfBlocks", "204800"},
             {"Size", "104857600"},
             {"StartingOffset", "1048576"},
             {"Bootable", false},
             {"BootPartition", false},
             {"PrimaryPartition", true},
             {"Status", {}}},
            std::move(given));
        ++partitions_;
        return Link("Win32_DiskDriveToDiskPartition",
                    {"Antecedent", Reference("Win32_DiskDrive", "DeviceID", diskId_)},
                    {"Dependent", Reference("Win32_DiskPartition", "DeviceID", id)});
    }

    /// The disk's row of failure prediction; its instance is the plug-and-play device with "_0".
    HostBuilder& FailurePrediction(bool predicted, Properties given = {}) {
        host_.AddRow(wmi, "MSStorageDriver_FailurePredictStatus",
                     Merged({{"Active", true},
                             {"InstanceName", diskPnpId_ + "_0"},
                             {"PredictFailure", predicted},
                             {"Reason", std::int64_t{0}}},
                            std::move(given)));
        return *this;
    }

    /// A controller, its plug-and-play entity and the link that says that they are the same.
    HostBuilder& Controller(const std::string& deviceId, Properties given = {}) {
        controllerId_ = deviceId;
        return ControllerRow(deviceId, "Test controller", std::move(given));
    }

    /// A channel, which is a controller row as well, of the controller.
    HostBuilder& Channel(const std::string& deviceId, Properties given = {}) {
        channelId_ = deviceId;
        ControllerRow(deviceId, "ATA Channel", std::move(given));
        return Device(controllerId_, deviceId);
    }

    /// The link that puts the disk behind the channel, or directly behind the controller.
    HostBuilder& BehindChannel() { return Device(channelId_, diskPnpId_); }
    HostBuilder& BehindController() { return Device(controllerId_, diskPnpId_); }

    /// A plug-and-play entity.
    HostBuilder& Entity(const std::string& deviceId, const std::string& caption,
                        Properties given = {}) {
        entityId_ = deviceId;
        return Add("Win32_PnPEntity",
                   {{"DeviceID", deviceId},
                    {"PNPDeviceID", deviceId},
                    {"Caption", caption},
                    {"Name", caption},
                    {"Status", "OK"}},
                   std::move(given));
    }

    /// A driver, and the link to the entity that was named last (the one of the disk, controller
    /// or channel).
    HostBuilder& Driver(const std::string& name, Properties given = {}) {
        Add("Win32_SystemDriver",
            {{"Name", name},
             {"DisplayName", name},
             {"PathName", R"(C:\Windows\system32\drivers\)" + name + ".sys"}},
            std::move(given));
        return Link("Win32_SystemDriverPNPEntity",
                    {"Antecedent", Reference("Win32_PnPEntity", "DeviceID", entityId_)},
                    {"Dependent", Reference("Win32_SystemDriver", "Name", name)});
    }

    /// A link of Win32_IDEControllerDevice between any two devices.
    HostBuilder& Device(const std::string& controllerId, const std::string& deviceId) {
        return Link("Win32_IDEControllerDevice",
                    {"Antecedent", Reference("Win32_IDEController", "DeviceID", controllerId)},
                    {"Dependent", Reference("Win32_PnPEntity", "DeviceID", deviceId)});
    }

    /// Any row of root\CIMv2, with nothing but what is given.
    HostBuilder& Row(std::string_view className, Properties properties) {
        host_.AddRow(cimv2, className, std::move(properties));
        return *this;
    }

    /// Makes the queries of a class of root\CIMv2 fail, or of failure prediction.
    HostBuilder& Fail(std::string_view className) {
        host_.FailClass(className.starts_with("MS") ? wmi : cimv2, className);
        return *this;
    }

    /// The path that a reference property holds.
    std::string Reference(std::string_view className, std::string_view key,
                          std::string_view value) const {
        const service::ObjectPath path{server_,
                                       R"(root\cimv2)",
                                       std::string(className),
                                       {{std::string(key), std::string(value), true}},
                                       false};
        return FormatObjectPath(path, service::PathForm::full);
    }

    service::RecordedHost Build() const { return host_; }

private:
    static constexpr std::string_view cimv2 = R"(root\CIMv2)";
    static constexpr std::string_view wmi = R"(root\wmi)";

    std::string FoldedName() const {
        std::string name = server_;
        std::ranges::transform(name, name.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        });
        return name;
    }

    static Properties Merged(Properties usual, Properties given) {
        for (auto& [name, value] : given) {
            const auto found = std::ranges::find(usual, name, &Properties::value_type::first);
            if (found == usual.end()) {
                usual.emplace_back(name, std::move(value));
            } else {
                found->second = std::move(value);
            }
        }
        return usual;
    }

    HostBuilder& Add(std::string_view className, Properties usual, Properties given) {
        usual.emplace_back("CreationClassName", std::string(className));
        usual.emplace_back("SystemName", server_);
        return Row(className, Merged(std::move(usual), std::move(given)));
    }

    HostBuilder& Link(std::string_view className, std::pair<const char*, std::string> one,
                      std::pair<const char*, std::string> other) {
        return Row(className, {{one.first, one.second}, {other.first, other.second}});
    }

    HostBuilder& ControllerRow(const std::string& deviceId, const std::string& caption,
                               Properties given) {
        Add("Win32_IDEController",
            {{"DeviceID", deviceId},
             {"PNPDeviceID", deviceId},
             {"Caption", caption},
             {"Name", caption},
             {"Description", caption},
             {"Manufacturer", "Test maker"},
             {"ProtocolSupported", std::int64_t{37}},
             {"Status", "OK"}},
            std::move(given));
        Entity(deviceId, caption);
        return Link("Win32_PnPDevice",
                    {"SameElement", Reference("Win32_IDEController", "DeviceID", deviceId)},
                    {"SystemElement", Reference("Win32_PnPEntity", "DeviceID", deviceId)});
    }

    std::string server_;
    service::RecordedHost host_;
    std::string diskId_;
    std::string diskPnpId_;
    int diskIndex_ = 0;
    int partitions_ = 0;
    std::string controllerId_;
    std::string channelId_;
    std::string entityId_;
};

}  // namespace qv::test
