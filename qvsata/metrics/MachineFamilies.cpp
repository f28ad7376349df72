#include "qvsata/metrics/MachineFamilies.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <utility>

#include "qvsata/view/SerialNumber.h"

namespace qv::metrics {
namespace {

using view::OsDisk;
using view::Severity;

constexpr std::array statuses{
    std::pair<Severity, const char*>{Severity::fine, "ok"},
    std::pair<Severity, const char*>{Severity::unknown, "unknown"},
    std::pair<Severity, const char*>{Severity::degraded, "degraded"},
    std::pair<Severity, const char*>{Severity::failurePredicted, "failure_predicted"},
    std::pair<Severity, const char*>{Severity::failed, "failed"},
};

/// A disk and the value of its label "disk".
using NamedDisk = std::pair<std::string, const OsDisk*>;

/// Returns all disks with names, of which no two are equal: the drive number, or "none", and from
/// the second disk with that number on its place among them.
std::vector<NamedDisk> Named(const std::vector<OsDisk>& disks) {
    std::map<std::string, std::size_t> counts;
    std::vector<NamedDisk> named;
    for (const OsDisk& disk : disks) {
        const std::string number = disk.number ? std::to_string(*disk.number) : "none";
        const std::size_t place = ++counts[number];
        named.emplace_back(place == 1 ? number : number + '/' + std::to_string(place), &disk);
    }
    return named;
}

/// Returns those disks that have series of their own, in their order.
std::vector<NamedDisk> Shown(const std::vector<OsDisk>& disks) {
    std::vector<NamedDisk> shown = Named(disks);
    if (shown.size() > mostDisks) {
        std::ranges::stable_sort(shown, std::ranges::greater(), [](const NamedDisk& disk) {
            return SeverityOf(HealthOf(*disk.second));
        });
        shown.resize(mostDisks);
        std::ranges::sort(shown, {}, &NamedDisk::second);
    }
    return shown;
}

std::vector<Label> Identity(const std::string& name, const OsDisk& disk) {
    return {{"disk", name},
            {"model", disk.model},
            {"serial", view::DecodedSerialNumber(disk.serialNumber).value_or(disk.serialNumber)},
            {"firmware", disk.firmware},
            {"bus", disk.bus},
            {"device_id", disk.deviceId}};
}

/// Adds a series for each status: 1 for the one that a health has, otherwise 0.
void AddStatuses(Family& family, const std::vector<Label>& labels, const view::Health& health) {
    for (const auto& [severity, name] : statuses) {
        std::vector<Label> all = labels;
        all.push_back({"status", name});
        family.samples.push_back({std::move(all), SeverityOf(health) == severity ? 1.0 : 0.0});
    }
}

/// A family of one value; without a series if there is none.
template <typename Value>
Family Single(std::string_view name, std::string_view help, std::optional<Value> value) {
    Family family{name, help, {}};
    if (value) {
        family.samples.push_back({{}, static_cast<double>(*value)});
    }
    return family;
}

void AddRun(std::vector<Family>& families, const Machine& machine) {
    families.push_back({"qvsata_build_info",
                        "The program that wrote these metrics.",
                        {{{{"version", machine.version}}, 1}}});
    families.push_back(Single("qvsata_last_run_timestamp_seconds",
                              "When the machine was read, in seconds since 1970.",
                              std::optional(machine.time.time_since_epoch().count())));
    families.push_back(
        Single("qvsata_recording_modified_timestamp_seconds",
               "When the recording that was read was last changed; absent for a machine itself.",
               machine.recorded ? std::optional(machine.recorded->time_since_epoch().count())
                                : std::nullopt));
    families.push_back({"qvsata_computer_info",
                        "The computer's name; without a label if it cannot be read.",
                        {{{{"computer", machine.computer}}, 1}}});
}

void AddSources(std::vector<Family>& families, const std::vector<Source>& sources) {
    Family success{"qvsata_source_success",
                   "Whether a class of the operating system could be read; absent if it was not "
                   "queried.",
                   {}};
    Family rows{"qvsata_source_rows", "Rows of a class; absent if it could not be read.", {}};
    Family duration{"qvsata_source_duration_seconds", "Time of all queries of a class.", {}};
    for (const Source& source : sources) {
        const std::vector<Label> labels{{"class", std::string(source.className)}};
        success.samples.push_back({labels, source.rows ? 1.0 : 0.0});
        if (source.rows) {
            rows.samples.push_back({labels, static_cast<double>(*source.rows)});
        }
        duration.samples.push_back({labels, std::chrono::duration<double>(source.time).count()});
    }
    families.insert(families.end(), {std::move(success), std::move(rows), std::move(duration)});
}

void AddCounts(std::vector<Family>& families, const Machine& machine) {
    const std::vector<OsDisk>& disks = machine.disks.disks;
    const auto ifRead = [](bool isRead, std::size_t count) {
        return isRead ? std::optional(count) : std::nullopt;
    };
    families.push_back(Single("qvsata_disks",
                              "Disks of the operating system; absent if they could not be read.",
                              ifRead(machine.disks.disksAreRead, disks.size())));
    families.push_back(Single("qvsata_disks_published",
                              "Disks that the provider publishes; absent if that is not known.",
                              machine.published));
    families.push_back(Single("qvsata_disks_expected",
                              "Published disks that the machine should have (--expect).",
                              machine.expectedDisks));
    families.push_back(Single(
        "qvsata_disks_omitted", "Disks without series of their own, because they are many.",
        ifRead(machine.disks.disksAreRead, disks.size() - std::min(disks.size(), mostDisks))));
    families.push_back(Single(
        "qvsata_unknown_devices_failing",
        "Devices that are predicted to fail and are none of the disks; absent if the predictions "
        "could not be read.",
        ifRead(machine.disks.predictionsAreRead, machine.disks.failingOthers.size())));
}

void AddDisks(std::vector<Family>& families, const std::vector<OsDisk>& disks) {
    Family identity{"qvsata_disk_info", "A disk of the operating system.", {}};
    Family size{"qvsata_disk_size_bytes", "Size of a disk.", {}};
    Family status{"qvsata_disk_status", "Whether a disk reports this status.", {}};
    Family prediction{
        "qvsata_disk_failure_predicted",
        "Whether the disk is predicted to fail; absent if no prediction names it or can be read.",
        {}};
    Family unknown{"qvsata_disk_prediction_unknown",
                   "Whether the prediction that names the disk does not tell whether it will fail.",
                   {}};
    Family excluded{
        "qvsata_disk_excluded_info", "A disk that the provider does not publish, and why.", {}};
    for (const auto& [name, disk] : Shown(disks)) {
        const std::vector<Label> key{{"disk", name}};
        identity.samples.push_back({Identity(name, *disk), 1});
        if (disk->size) {
            size.samples.push_back({key, static_cast<double>(*disk->size)});
        }
        AddStatuses(status, key, disk->health);
        if (disk->hasPrediction) {
            unknown.samples.push_back({key, disk->failureIsPredicted ? 0.0 : 1.0});
        }
        if (disk->hasPrediction && disk->failureIsPredicted) {
            prediction.samples.push_back({key, *disk->failureIsPredicted ? 1.0 : 0.0});
        }
        if (!disk->whyUnpublished.empty()) {
            excluded.samples.push_back({{{"disk", name}, {"reason", disk->whyUnpublished}}, 1});
        }
    }
    families.insert(families.end(),
                    {std::move(identity), std::move(size), std::move(status), std::move(prediction),
                     std::move(unknown), std::move(excluded)});
}

void AddCollection(std::vector<Family>& families, const std::optional<view::Health>& collection) {
    Family status{"qvsata_collection_status",
                  "Whether the collection of all published disks has this status.",
                  {}};
    if (collection) {
        AddStatuses(status, {}, *collection);
    }
    families.push_back(std::move(status));
}

}  // namespace

std::vector<Family> FamiliesOf(const Machine& machine) {
    std::vector<Family> families;
    AddRun(families, machine);
    AddSources(families, machine.sources);
    AddCounts(families, machine);
    AddDisks(families, machine.disks.disks);
    AddCollection(families, machine.collection);
    return families;
}

}  // namespace qv::metrics
