#include "benchmarks/AttachedHost.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace qv::benchmarks {
namespace {

using Property = std::pair<std::string, platform::Value>;

class SmallRow : public platform::Row {
public:
    explicit SmallRow(std::vector<Property> properties) : properties_(std::move(properties)) {}

    platform::PropertyRead Get(std::string_view name) const override {
        const auto found = std::ranges::find(properties_, name, &Property::first);
        return found == properties_.end() ? platform::PropertyRead{}
                                          : platform::PropertyRead{Status::noError, found->second};
    }
    Status GetWideText(std::string_view, std::wstring&) const override { return Status::notFound; }

private:
    std::vector<Property> properties_;
};

std::string PathOf(const std::string& className, const std::string& deviceId) {
    std::string path = "\\\\SRV01\\root\\CIMv2:" + className + ".DeviceID=\"";
    for (const char character : deviceId) {
        path.append(character == '\\' ? 2 : 1, character);
    }
    return path + "\"";
}

std::shared_ptr<const platform::Row> ControllerRow(const std::string& deviceId) {
    return std::make_shared<SmallRow>(std::vector<Property>{
        {"DeviceID", deviceId},
        {"PNPDeviceID", deviceId},
        {"__PATH", PathOf("Win32_IDEController", deviceId)},
        {"Caption", "Standard Dual Channel PCI IDE Controller"},
        {"Manufacturer", "(Standard IDE ATA/ATAPI controllers)"},
    });
}

std::shared_ptr<const platform::Row> LinkRow(const std::string& controller,
                                             const std::string& device) {
    return std::make_shared<SmallRow>(std::vector<Property>{
        {"Antecedent", PathOf("Win32_IDEController", controller)},
        {"Dependent", PathOf("Win32_PnPEntity", device)},
    });
}

std::shared_ptr<const platform::Row> DiskRow(const std::string& pnpDeviceId, int number) {
    return std::make_shared<SmallRow>(std::vector<Property>{
        {"InterfaceType", "IDE"},
        {"PNPDeviceID", pnpDeviceId},
        {"DeviceID", "\\\\.\\PHYSICALDRIVE" + std::to_string(number)},
        {"Caption", "GENERIC ST1000DM003 ATA Device"},
    });
}

}  // namespace

AttachedHost::AttachedHost(int disks) {
    platform::Rows& diskRows = RowsOf("SELECT * FROM Win32_DiskDrive");
    platform::Rows& controllerRows = RowsOf("SELECT * FROM Win32_IDEController");
    platform::Rows& linkRows = RowsOf("SELECT * FROM Win32_IDEControllerDevice");
    RowsOf("SELECT * FROM QV_SATADiskDrive");  // succeeds, without rows
    std::string controller;
    for (int number = 0; number < disks; ++number) {
        // All of one length, so that no ID is a prefix of another.
        const std::string text = std::to_string(10000 + number);
        if (number % 4 == 0) {
            controller = "PCI\\VEN_8086&DEV_7010&SUBSYS_11001AF4&REV_01\\3&" + text + "&0&09";
            controllerRows.push_back(ControllerRow(controller));
        }
        const std::string channel = "PCIIDE\\IDECHANNEL\\4&2E6E9E8&0&" + text;
        const std::string disk = "IDE\\DISKGENERIC_ST1000DM003____CC43____\\5&1A2B3C4D&0&" + text;
        controllerRows.push_back(ControllerRow(channel));
        linkRows.push_back(LinkRow(controller, channel));
        linkRows.push_back(LinkRow(channel, disk));
        diskRows.push_back(DiskRow(disk, number));
    }
}

}  // namespace qv::benchmarks
