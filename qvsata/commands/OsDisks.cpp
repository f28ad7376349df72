#include "qvsata/commands/OsDisks.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "qvsata/service/MachineQueries.h"
#include "qvsata/view/Columns.h"
#include "qvsata/view/SizeText.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/StatusMap.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

platform::Rows RowsOf(const platform::QueryPort& machine, std::string_view nameSpace,
                      const std::string& className) {
    platform::Rows rows;
    machine.RunWqlQuery(nameSpace, "SELECT * FROM " + className, rows);
    return rows;
}

/// Reads the rows once and describes disks with them.
class DiskReader {
public:
    explicit DiskReader(const platform::QueryPort& machine)
        : media_(RowsOf(machine, cimNamespace, "Win32_PhysicalMedia")),
          controllers_(RowsOf(machine, cimNamespace, "Win32_IDEController")),
          links_(RowsOf(machine, cimNamespace, "Win32_IDEControllerDevice"), controllers_),
          predictions_(RowsOf(machine, wmiNamespace, "MSStorageDriver_FailurePredictStatus")) {}

    static platform::Rows Disks(const platform::QueryPort& machine) {
        return RowsOf(machine, cimNamespace, "Win32_DiskDrive");
    }

    view::OsDisk Describe(const platform::Row& row) const {
        view::OsDisk disk;
        std::int32_t number = 0;
        if (Succeeded(GetIntegerProperty(row, "Index", number))) {
            disk.number = number;
        }
        disk.model = view::Trimmed(TextOrEmpty(row, "Model"));
        disk.size = view::BytesOf(TextOrEmpty(row, "Size"));
        disk.serialNumber = view::Trimmed(SerialNumberOf(row));
        disk.firmware = view::Trimmed(TextOrEmpty(row, "FirmwareRevision"));
        disk.bus = TextOrEmpty(row, "InterfaceType");
        disk.deviceId = TextOrEmpty(row, "PNPDeviceID");
        if (const auto* const controller = links_.ControllerOfDisk(disk.deviceId)) {
            disk.attachment = TextOrEmpty(*controller, "DeviceID");
        }
        disk.health = HealthOf(row);
        disk.failureIsPredicted = IsPredictedToFail(disk.deviceId);
        if (!IsIdeDisk(row)) {
            disk.whyUnpublished = disk.bus.empty() ? "bus unknown" : "bus is " + disk.bus;
        }
        return disk;
    }

private:
    std::string SerialNumberOf(const platform::Row& row) const {
        std::string deviceId;
        if (!Succeeded(GetStringProperty(row, "DeviceID", deviceId))) {
            return {};
        }
        const auto* const media = FindMediaOfDisk(row, media_);
        return media == nullptr ? TextOrEmpty(row, "SerialNumber")
                                : TextOrEmpty(*media, "SerialNumber");
    }

    static view::Health HealthOf(const platform::Row& row) {
        const std::string status = TextOrEmpty(row, "Status");
        if (status.empty()) {
            return {std::nullopt, "no status"};
        }
        std::vector<std::string> codes;
        std::vector<std::string> words;
        return {MapStatusToOperationalStatus(status, codes, words), status};
    }

    bool IsPredictedToFail(const std::string& deviceId) const {
        return std::ranges::any_of(predictions_, [&deviceId](const auto& row) {
            bool predicted = false;
            return Succeeded(GetBooleanProperty(*row, "PredictFailure", predicted)) && predicted &&
                   !deviceId.empty() &&
                   FoldCase(TextOrEmpty(*row, "InstanceName")).find(FoldCase(deviceId)) !=
                       std::string::npos;
        });
    }

    platform::Rows media_;
    platform::Rows controllers_;
    ControllerLinks links_;
    platform::Rows predictions_;
};

}  // namespace

std::vector<view::OsDisk> ReadOsDisks(const service::ProviderHost& host) {
    const service::MachineQueries machine(host.Machine());
    const platform::Rows rows = DiskReader::Disks(machine);
    const DiskReader reader(machine);
    std::vector<view::OsDisk> disks;
    std::ranges::transform(rows, std::back_inserter(disks),
                           [&reader](const auto& row) { return reader.Describe(*row); });
    std::ranges::stable_sort(disks, {}, [](const view::OsDisk& disk) {
        return disk.number.value_or(std::numeric_limits<std::int64_t>::max());
    });
    return disks;
}

}  // namespace qv::tool
