#include "qvsata/explain/Facts.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/view/text/Columns.h"
#include "qvsata/view/text/NameList.h"
#include "source/PropertyReaders.h"
#include "source/Text.h"

namespace qv::explain {
namespace {

std::string NameOf(const platform::Row& disk) {
    std::int32_t number = 0;
    const bool isNumbered = Succeeded(GetIntegerProperty(disk, "Index", number));
    return view::DiskName(isNumbered ? std::optional<std::int64_t>(number) : std::nullopt,
                          TextOrEmpty(disk, "Model"));
}

}  // namespace

Facts::Facts(const SourceRows& sourceRows)
    : rows(sourceRows), predictionsOfDisk(rows.disks.size()), links(rows.links, rows.controllers) {
    const MediaOfDisks media(rows.media);
    const PartitionLinks partitions(rows.disks, rows.partitionLinks, rows.partitions);
    for (const auto& disk : rows.disks) {
        diskNames.push_back(NameOf(*disk));
        diskIds.push_back(TextOrEmpty(*disk, "PNPDeviceID"));
        isPublished.push_back(IsIdeDisk(*disk));
        mediaOfDisk.push_back(media.Of(*disk));
        partitionsOfDisk.push_back(partitions.PartitionsOfDisk(TextOrEmpty(*disk, "DeviceID")));
    }
    if (const auto disk = FailingMediaSearch(rows)) {
        mediaSearchFailure = Finding{Rule::failsMediaSearch, {diskNames[*disk]}};
    }
    const PredictedDisks predicted(diskIds);
    for (const auto& prediction : rows.predictions) {
        disksOfPrediction.push_back(predicted.Of(*prediction));
        for (const std::size_t disk : disksOfPrediction.back()) {
            predictionsOfDisk[disk].push_back(prediction);
        }
    }
}

std::optional<std::string_view> Facts::FirstUnread(
    std::initializer_list<std::string_view> classes) const {
    const auto* const found = std::ranges::find_if(
        classes, [this](std::string_view name) { return rows.unread.contains(name); });
    return found == classes.end() ? std::nullopt : std::optional(*found);
}

const platform::Row* Facts::FailureOf(std::size_t disk) const {
    const auto& predictions = predictionsOfDisk[disk];
    const auto found = std::ranges::find_if(
        predictions, [](const auto& prediction) { return PredictsFailure(*prediction); });
    return diskIds[disk].empty() || found == predictions.end() ? nullptr : found->get();
}

Drivers::Drivers(const Facts& facts) {
    for (const auto& controller : facts.rows.controllers) {
        controllerNames.emplace(TextOrEmpty(*controller, "DeviceID"), ControllerName(*controller));
    }
    for (const ServingDriver& driver : facts.rows.drivers) {
        ofController[driver.controllerId].push_back(&driver);
        if (driver.IsPublished()) {
            published[*driver.family] = &driver;
        }
    }
}

std::string Drivers::NameWithId(const std::string& deviceId) const {
    const auto found = controllerNames.find(deviceId);
    return found == controllerNames.end() ? deviceId : found->second;
}

std::string Drivers::ControllerOfFamily(const ServingDriver& driver) const {
    return NameWithId(published.at(*driver.family)->controllerId);
}

void Publisher::Publish(Verdict& verdict, std::span<const std::string_view> classes) {
    verdict.outcome = Outcome::published;
    for (const std::string_view className : classes) {
        const auto& instances = view::InstancesOf(published_, className);
        const std::size_t place = next_[className]++;
        verdict.instances.push_back(
            {className, place, place < instances.size() ? instances[place].path : ""});
    }
}

bool PredictsFailure(const platform::Row& prediction) {
    bool predicts = false;
    GetBooleanProperty(prediction, "PredictFailure", predicts);
    return predicts;
}

std::string ControllerName(const platform::Row& controller) {
    const std::string name = TextOrEmpty(controller, "Name");
    const std::string id = TextOrEmpty(controller, "DeviceID");
    return name.empty() || name == id ? id : name + " (" + id + ')';
}

std::string KeyIn(const std::string& path) {
    const auto parsed = service::ParseObjectPath(path);
    return parsed && parsed->keys.size() == 1 ? parsed->keys.front().value : path;
}

std::string NamesOf(const Facts& facts, const Places& disks) {
    return view::NameList(disks, [&](std::size_t disk) { return facts.diskNames[disk]; });
}

Places DisksAmong(const Facts& facts, const Places& disks, bool published) {
    Places among;
    std::ranges::copy_if(disks, std::back_inserter(among),
                         [&](std::size_t disk) { return facts.isPublished[disk] == published; });
    return among;
}

void LeaveOut(const Facts& facts, Verdict& verdict, std::initializer_list<std::string_view> classes,
              Finding finding) {
    if (const auto unread = facts.FirstUnread(classes)) {
        verdict.outcome = Outcome::unreadable;
        verdict.reason = Finding{Rule::unreadSource, {std::string(*unread)}};
    } else {
        verdict.outcome = Outcome::unpublished;
        verdict.reason = std::move(finding);
    }
}

}  // namespace qv::explain
