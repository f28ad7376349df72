#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "tests/support/HostBuilder.h"

namespace qv::test {

/// Makes up hosts with all that real ones are not supposed to have: missing and doubled links, IDs
/// that are equal or contain one another, missing values, rows that belong to nothing, classes that
/// fail.
class HostGenerator {
public:
    /// The same seed makes the same host.
    explicit HostGenerator(unsigned seed) : random_(seed) {}

    service::RecordedHost Make() {
        const unsigned controllers = Below(4);
        for (unsigned controller = 0; controller < controllers; ++controller) {
            AddController(controller);
        }
        const unsigned disks = Below(5);
        for (unsigned disk = 0; disk < disks; ++disk) {
            AddDisk(disk);
        }
        AddLooseRows();
        if (Chance(15)) {
            host_.Fail(Any(classesThatFail));
        }
        return host_.Build();
    }

private:
    using Text = std::string_view;

    static constexpr std::array<Text, 7> classesThatFail{"Win32_DiskDrive",
                                                         "Win32_PhysicalMedia",
                                                         "Win32_IDEController",
                                                         "Win32_IDEControllerDevice",
                                                         "Win32_DiskPartition",
                                                         "Win32_DiskDriveToDiskPartition",
                                                         "MSStorageDriver_FailurePredictStatus"};
    static constexpr std::array<Text, 5> controllerIds{
        R"(PCI\VEN_8086&DEV_2922&REV_02\3&1)", R"(PCI\VEN_8086&DEV_2922&REV_02\3&11)",
        R"(PCI\VEN_1022&DEV_7801&REV_40\3&2)", R"(PCI\VEN_1022&DEV_7801\3&2)", R"(ROOT\RAID\0000)"};
    static constexpr std::array<Text, 4> channelIds{
        R"(PCIIDE\IDECHANNEL\4&1&0)", R"(PCIIDE\IDECHANNEL\4&1&01)", R"(PCIIDE\IDECHANNEL\4&2&0)",
        R"(PCI\VEN_1&DEV_2&REV_01&IDECHANNEL\4)"};
    static constexpr std::array<Text, 6> diskIds{R"(IDE\DISKX\5&1)",           R"(IDE\DISKX\5&12)",
                                                 R"(ide\diskx\5&1)",           R"(IDE\DISKY\6&AB)",
                                                 R"(SCSI\DISK&VEN_ZED\4&1&0)", R"(USBSTOR\DISK\7)"};
    static constexpr std::array<Text, 8> interfaceTypes{"IDE", "IDE", "IDE",  "IDE",
                                                        "IDE", "ide", "SCSI", "USB"};
    static constexpr std::array<Text, 6> drivers{"msahci", "pciide", "pciidex",
                                                 "atapi",  "MSAHCI", "storahci"};

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    bool Chance(unsigned percent) { return Below(100) < percent; }
    template <std::size_t Size>
    std::string Any(const std::array<Text, Size>& texts) {
        return std::string(texts[Below(Size)]);
    }
    /// A text, or no value at all.
    service::CimValue Often(const std::string& text) {
        return Chance(90) ? service::CimValue(text) : service::CimValue();
    }

    void AddDrivers() {
        for (unsigned count = Below(3); count != 0; --count) {
            host_.Driver(Any(drivers));
        }
    }

    void AddController(unsigned place) {
        const std::string id = Any(controllerIds);
        host_.Controller(id, {{"Name", Often("Controller " + std::to_string(place))}});
        AddDrivers();
        for (unsigned channels = Below(3); channels != 0; --channels) {
            host_.Channel(Any(channelIds));
            AddDrivers();
        }
        hasController_ = true;
    }

    void AddDisk(unsigned place) {
        const std::string id = Any(diskIds);
        HostBuilder::Properties given{{"InterfaceType", Often(Any(interfaceTypes))},
                                      {"PNPDeviceID", Often(id)}};
        if (Chance(3)) {
            given.emplace_back("DeviceID", service::CimValue());
        }
        // Drive 1 is the beginning of drive 10.
        host_.Disk(static_cast<int>(Chance(20) ? place * 10 : place), id, given);
        for (unsigned links = Chance(85) ? 1 + Below(2) : 0; links != 0 && hasController_;
             --links) {
            host_.Device(Chance(40) ? Any(controllerIds) : Any(channelIds), id);
        }
        for (unsigned media = Chance(80) ? 1 + Below(2) : 0; media != 0; --media) {
            host_.Media(Often(Chance(80) ? "SN" + std::to_string(Below(3)) : ""));
        }
        for (unsigned partitions = Below(4); partitions != 0; --partitions) {
            host_.Partition({{"Caption", Often("Partition")}, {"Size", Often("7")}});
        }
        for (unsigned predictions = Below(3); predictions != 0; --predictions) {
            host_.FailurePrediction(Chance(30));
        }
    }

    void AddLooseRows() {
        if (Chance(20)) {
            host_.Row("Win32_PhysicalMedia", {{"Tag", R"(\\.\CDROM0)"}});
        }
        if (Chance(20)) {
            host_.Row("Win32_DiskPartition", {{"DeviceID", "Disk #7, Partition #0"}});
        }
        if (Chance(20)) {
            host_.Row("Win32_DiskDriveToDiskPartition",
                      {{"Antecedent", host_.Reference("Win32_DiskDrive", "DeviceID", "none")},
                       {"Dependent", service::CimValue()}});
        }
        if (Chance(20)) {
            host_.Device(R"(PCI\NONE)", Any(diskIds));
        }
        if (Chance(20)) {
            host_.Device(Any(channelIds), Any(channelIds));
        }
    }

    std::mt19937 random_;
    HostBuilder host_;
    bool hasController_ = false;
};

}  // namespace qv::test
