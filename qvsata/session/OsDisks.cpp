#include "qvsata/session/OsDisks.h"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

#include "qvsata/service/MachineQueries.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/text/Columns.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/StatusMap.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

struct ReadRows {
    Status status;
    platform::Rows rows;
};

ReadRows Read(const platform::QueryPort& machine, std::string_view nameSpace,
              const std::string& className) {
    ReadRows read;
    read.status = machine.RunWqlQuery(nameSpace, "SELECT * FROM " + className, read.rows);
    return read;
}

/// A failure-prediction row.
struct Prediction {
    std::string device;         ///< its name
    std::string compared;       ///< the same in upper case
    std::optional<bool> fails;  ///< unset if the row does not tell
};

std::vector<Prediction> PredictionsOf(const platform::Rows& rows) {
    std::vector<Prediction> predictions;
    for (const auto& row : rows) {
        Prediction prediction;
        prediction.device = TextOrEmpty(*row, "InstanceName");
        prediction.compared = ToUpper(prediction.device);
        bool fails = false;
        if (Succeeded(GetBooleanProperty(*row, "PredictFailure", fails))) {
            prediction.fails = fails;
        }
        predictions.push_back(std::move(prediction));
    }
    return predictions;
}

/// Reads the rows once and describes disks with them.
class DiskReader {
public:
    explicit DiskReader(const platform::QueryPort& machine)
        : DiskReader(Read(machine, cimNamespace, "Win32_PhysicalMedia"),
                     Read(machine, cimNamespace, "Win32_IDEController"),
                     Read(machine, cimNamespace, "Win32_IDEControllerDevice"),
                     Read(machine, wmiNamespace, "MSStorageDriver_FailurePredictStatus")) {}

    view::OsDisk Describe(const platform::Row& row) const {
        view::OsDisk disk;
        std::int32_t number = 0;
        if (Succeeded(GetIntegerProperty(row, "Index", number))) {
            disk.number = number;
        }
        disk.model = view::Trimmed(TextOrEmpty(row, "Model"));
        disk.size = view::BytesOf(TextOrEmpty(row, "Size"));
        disk.serialNumber = view::Trimmed(SerialNumberOf(row));
        disk.serialNumberIsRead = mediaAreRead_;
        disk.firmware = view::Trimmed(TextOrEmpty(row, "FirmwareRevision"));
        disk.bus = TextOrEmpty(row, "InterfaceType");
        disk.deviceId = TextOrEmpty(row, "PNPDeviceID");
        if (const auto* const controller = links_.ControllerOfDisk(disk.deviceId)) {
            disk.attachment = TextOrEmpty(*controller, "DeviceID");
            disk.attachmentName = NameOf(*controller);
        }
        disk.health = HealthOf(row);
        disk.attachmentIsRead = attachmentsAreRead_;
        if (predictionsAreRead_) {
            disk.failureIsPredicted = IsPredictedToFail(disk.deviceId);
            disk.hasPrediction = !disk.deviceId.empty() && IsNamedByPrediction(disk.deviceId);
        }
        if (!IsIdeDisk(row)) {
            disk.whyUnpublished = disk.bus.empty() ? "bus unknown" : "bus is " + disk.bus;
        }
        disk.whyUnwatched =
            disk.whyUnpublished.empty() ? WhyUnwatched(disk.deviceId) : disk.whyUnpublished;
        return disk;
    }

    bool PredictionsAreRead() const { return predictionsAreRead_; }

    /// Returns the devices that are predicted to fail and are none of these disks.
    std::vector<std::string> FailingOthers(const std::vector<view::OsDisk>& disks) const {
        std::vector<std::string> devices;
        for (const Prediction& prediction : predictions_) {
            const auto isOf = [&prediction](const view::OsDisk& disk) {
                return !disk.deviceId.empty() &&
                       IsPredictionOf(prediction.compared, ToUpper(disk.deviceId));
            };
            if (prediction.fails == true && std::ranges::none_of(disks, isOf)) {
                devices.push_back(prediction.device);
            }
        }
        return devices;
    }

private:
    DiskReader(ReadRows media, ReadRows controllers, const ReadRows& links,
               const ReadRows& predictions)
        : media_(std::move(media.rows)),
          mediaAreRead_(Succeeded(media.status)),
          mediaOfDisks_(media_),
          controllers_(std::move(controllers.rows)),
          links_(links.rows, controllers_),
          attachmentsAreRead_(Succeeded(controllers.status) && Succeeded(links.status)),
          predictions_(PredictionsOf(predictions.rows)),
          predictionsAreRead_(Succeeded(predictions.status)) {
        for (const auto& controller : controllers_) {
            ++namesakes_[TextOrEmpty(*controller, "Name")];
        }
    }

    std::string SerialNumberOf(const platform::Row& row) const {
        if (!IsComparableWithMedia(row)) {
            return {};
        }
        const auto* const media = mediaOfDisks_.Of(row);
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

    /// Returns a channel by its ID, a controller by its name; with the end of its ID if another
    /// controller has that name.
    std::string NameOf(const platform::Row& controller) const {
        const std::string deviceId = TextOrEmpty(controller, "DeviceID");
        const std::string instance = deviceId.substr(deviceId.rfind('\\') + 1);
        if (IsChannel(deviceId)) {
            return "channel " + instance;
        }
        const std::string name = TextOrEmpty(controller, "Name");
        return namesakes_.at(name) > 1 ? name + " (" + instance + ")" : name;
    }

    /// Returns whether a row of the disk predicts a failure; nothing if none does but one of them
    /// does not tell.
    std::optional<bool> IsPredictedToFail(const std::string& deviceId) const {
        if (deviceId.empty()) {
            return false;
        }
        std::optional<bool> fails = false;
        const std::string compared = ToUpper(deviceId);
        for (const Prediction& prediction : predictions_) {
            if (prediction.fails != false && IsPredictionOf(prediction.compared, compared)) {
                fails = fails == true ? fails : prediction.fails;
            }
        }
        return fails;
    }

    std::string WhyUnwatched(const std::string& deviceId) const {
        if (!predictionsAreRead_) {
            return "failure predictions not readable";
        }
        return IsNamedByPrediction(deviceId) ? "" : "no failure-prediction row names it";
    }

    bool IsNamedByPrediction(const std::string& deviceId) const {
        const std::string compared = ToUpper(deviceId);
        return std::ranges::any_of(predictions_, [&](const Prediction& prediction) {
            return IsPredictionOf(prediction.compared, compared);
        });
    }

    platform::Rows media_;
    bool mediaAreRead_;
    MediaOfDisks mediaOfDisks_;
    platform::Rows controllers_;
    std::map<std::string, int> namesakes_;  ///< how many controllers have a name
    ControllerLinks links_;
    bool attachmentsAreRead_;
    std::vector<Prediction> predictions_;
    bool predictionsAreRead_;
};

}  // namespace

view::OsDisks ReadOsDisks(const service::ProviderHost& host) {
    const service::MachineQueries machine(host.Machine());
    const ReadRows disks = Read(machine, cimNamespace, "Win32_DiskDrive");
    const DiskReader reader(machine);
    view::OsDisks all;
    all.disksAreRead = Succeeded(disks.status);
    std::ranges::transform(disks.rows, std::back_inserter(all.disks),
                           [&reader](const auto& row) { return reader.Describe(*row); });
    std::ranges::stable_sort(all.disks, {}, [](const view::OsDisk& disk) {
        return disk.number.value_or(std::numeric_limits<std::int64_t>::max());
    });
    all.predictionsAreRead = reader.PredictionsAreRead();
    all.failingOthers = reader.FailingOthers(all.disks);
    return all;
}

}  // namespace qv::tool
