#include <array>

#include "fuzz/Chooser.h"
#include "fuzz/Publishing.h"
#include "tests/support/HostBuilder.h"

namespace qv::fuzz {
namespace {

using service::CimValue;
using test::HostBuilder;

// IDs that begin with, contain or nearly equal each other, and some that no system reports.
constexpr std::array ids{
    R"(IDE\DISKX\5&1)",
    R"(IDE\DISKX\5&10)",
    R"(ide\diskx\5&1)",
    R"(PCI\VEN_8086&DEV_2922&REV_02\3&1)",
    R"(PCI\VEN_8086&DEV_2922&REV_02\3&11)",
    R"(PCI\VEN_1B4B&DEV_9123\4&2&REV_)",
    R"(PCIIDE\IDECHANNEL\4&0)",
    R"(PCIIDE\IDECHANNEL\4&0&1)",
    R"(IDECHANNEL)",
    R"(SCSI\DISK&VEN_Q\4&7&0)",
    R"(USBSTOR\DISK)",
    R"(\\.\PHYSICALDRIVE1)",
    R"(\\\\.\root)",
    R"(\\\\SRV:x)",
    "ID \"quoted\"",
    "A*-*B",
    "\xC3\x84\xE2\x80\xAE\x1b",
    "&",
    "",
};

constexpr std::array properties{
    "DeviceID",
    "PNPDeviceID",
    "InterfaceType",
    "Status",
    "Index",
    "Size",
    "Partitions",
    "Caption",
    "Name",
    "Model",
    "Manufacturer",
    "FirmwareRevision",
    "Capabilities",
    "BytesPerSector",
    "SCSIPort",
    "SystemName",
    "Tag",
    "SerialNumber",
    "Antecedent",
    "Dependent",
    "Description",
    "Bootable",
    "DiskIndex",
    "CompressionMethod",
    "__PATH",
    "StatusInfo",
    "ProtocolSupported",
    "StartingOffset",
    "DisplayName",
    "CreationClassName",
};

constexpr std::array drivers{"msahci", "iaStor", "pciide", "atapi", "pciidex", "storahci", ""};

const std::vector<CimValue>& Values() {
    static const std::vector<CimValue> values = {
        {},
        true,
        std::int64_t{0},
        std::int64_t{-1},
        std::int64_t{2147483647},
        "OK",
        "Pred Fail",
        "Degraded",
        "Service",
        "IDE",
        "SCSI",
        "",
        "18446744073709551615",
        "99999999999999999999999",
        "2*-*3",
        "\"",
        "\\",
        std::vector<std::int64_t>{},
        std::vector<std::int64_t>{3, 4, 99, -1},
        std::vector<std::string>{"a", "", "*-*"},
        R"(\\SRV01\root\cimv2:Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE1")",
    };
    return values;
}

HostBuilder::Properties GivenProperties(Chooser& chooser) {
    HostBuilder::Properties given;
    for (std::size_t count = chooser.Below(4); count > 1; --count) {
        const std::string name = chooser.OneOf(properties);
        // Every third value is an ID.
        given.emplace_back(
            name, chooser.Below(3) == 0 ? CimValue(chooser.OneOf(ids)) : chooser.OneOf(Values()));
    }
    return given;
}

void AddObject(HostBuilder& host, Chooser& chooser) {
    const std::size_t kind = chooser.Below(14);
    const std::string id = chooser.OneOf(ids);
    switch (kind) {
        case 0:
            host.Disk(static_cast<int>(chooser.Below(12)), id, GivenProperties(chooser));
            break;
        case 1:
            host.Controller(id, GivenProperties(chooser));
            break;
        case 2:
            host.Channel(id, GivenProperties(chooser));
            break;
        case 3:
            host.BehindChannel();
            break;
        case 4:
            host.BehindController();
            break;
        case 5:
            host.Partition(GivenProperties(chooser));
            break;
        case 6:
            host.Media(chooser.OneOf(Values()), GivenProperties(chooser));
            break;
        case 7:
            host.FailurePrediction(chooser.Below(2) == 0, GivenProperties(chooser));
            break;
        case 8:
            host.Driver(chooser.OneOf(drivers), GivenProperties(chooser));
            break;
        case 9:
            host.Device(id, chooser.OneOf(ids));
            break;
        case 10:
            host.Entity(id, id, GivenProperties(chooser));
            break;
        case 11:
            host.Disk(1, id).BehindChannel().Media(id).Partition();
            break;
        case 12:
            host.Controller(id).Driver(chooser.OneOf(drivers)).Channel(chooser.OneOf(ids));
            break;
        default:
            host.Fail(chooser.OneOf(std::array{"Win32_DiskDrive", "Win32_IDEController",
                                               "Win32_PnPEntity", "Win32_PhysicalMedia",
                                               "MSStorageDriver_FailurePredictStatus"}));
    }
}

}  // namespace

void RunHostTokens(Bytes input) {
    // Few objects: what is published of them grows with their cube, and small hosts are quick.
    constexpr int mostObjects = 4;
    Chooser chooser(input);
    const std::size_t chosen = chooser.Below(256);
    HostBuilder host(chooser.OneOf(std::array{"SRV01", "", "\xC3\x84", "A:B", "S\"X"}));
    for (int objects = 0; objects < mostObjects && !chooser.AtEnd(); ++objects) {
        AddObject(host, chooser);
    }
    CheckClass(host.Build(), chosen);
}

}  // namespace qv::fuzz
