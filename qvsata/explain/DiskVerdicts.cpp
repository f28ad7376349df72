#include <array>
#include <utility>

#include "qvsata/explain/Facts.h"
#include "source/PropertyReaders.h"

namespace qv::explain {
namespace {

// The classes whose requests compare disks with media rows.
constexpr std::array<std::string_view, 3> classesWithMedia{"QV_SATADiskDrive", "QV_SATADiskDriveFW",
                                                           "QV_SATADiskPhysicalPackage"};
constexpr std::array<std::string_view, 3> classesWithoutMedia{
    "QV_SATADiskLocation", "QV_SATAStorageExtent", "QV_TSATAProtocolEndpoint"};

const std::vector<std::string_view> associationsOfAttachment{
    "QV_TSATAProtocolEndpointSATADiskDrive", "QV_SATAInitiatorTargetLogicalUnitPath"};

Finding Events(const Facts& facts, std::size_t disk) {
    if (const auto& predictions = facts.predictionsOfDisk[disk]; !predictions.empty()) {
        return {Rule::raisesEvents, {TextOrEmpty(*predictions.front(), "InstanceName")}};
    }
    return {facts.FirstUnread({source::predictions}) ? Rule::unreadEvents : Rule::raisesNoEvents};
}

Finding Attachment(const Facts& facts, std::size_t disk) {
    const auto* const controller = facts.links.ControllerOfDisk(facts.diskIds[disk]);
    if (controller == nullptr) {
        const auto unread = facts.FirstUnread({source::links, source::controllers});
        return unread ? Finding{Rule::unreadLink, {std::string(*unread)}, associationsOfAttachment}
                      : Finding{Rule::hasNoLink, {}, associationsOfAttachment};
    }
    const std::string id = TextOrEmpty(*controller, "DeviceID");
    if (IsInitiator(id)) {
        return {Rule::joinsPort, {ControllerName(*controller)}};
    }
    const Rule inPlaceOfPort = IsChannel(id)          ? Rule::channelIsNoInitiator
                               : IsPortController(id) ? Rule::hangsOnController
                                                      : Rule::hangsOnOther;
    return {inPlaceOfPort, {ControllerName(*controller)}, associationsOfAttachment};
}

std::optional<Finding> MissingSerialNumber(const Facts& facts, std::size_t place) {
    const platform::Row& disk = *facts.rows.disks[place];
    if (!IsComparableWithMedia(disk)) {
        return std::nullopt;
    }
    const auto* const media = facts.mediaOfDisk[place];
    if (media == nullptr) {
        return facts.FirstUnread({source::media})
                   ? Finding{Rule::unreadMedia}
                   : Finding{Rule::hasNoMedia, {TextOrEmpty(disk, "DeviceID")}};
    }
    if (TextOrEmpty(*media, "SerialNumber").empty()) {
        return Finding{Rule::hasEmptySerialNumber};
    }
    return std::nullopt;
}

Finding ShownPartition(const Facts& facts, std::size_t disk) {
    const auto& partitions = facts.partitionsOfDisk[disk];
    if (partitions.empty()) {
        const auto unread = facts.FirstUnread({source::partitionLinks, source::partitions});
        return unread ? Finding{Rule::unreadPartition, {std::string(*unread)}}
                      : Finding{Rule::showsNoPartition};
    }
    const std::string shown = TextOrEmpty(*partitions.back(), "DeviceID");
    return partitions.size() == 1
               ? Finding{Rule::showsPartition, {shown}}
               : Finding{Rule::showsLastPartition, {shown, std::to_string(partitions.size())}};
}

}  // namespace

std::vector<Verdict> DiskVerdicts(const Facts& facts, Publisher& publisher) {
    std::vector<Verdict> verdicts;
    for (std::size_t place = 0; place < facts.rows.disks.size(); ++place) {
        const platform::Row& disk = *facts.rows.disks[place];
        Verdict verdict{source::disks, facts.diskNames[place], facts.diskIds[place]};
        verdict.disks = {place};
        if (const auto* const prediction = facts.FailureOf(place)) {
            verdict.notes.push_back(
                {Rule::failureIsPredicted, {TextOrEmpty(*prediction, "InstanceName")}});
        }
        if (!facts.isPublished[place]) {
            verdict.outcome = Outcome::unpublished;
            verdict.reason = Finding{Rule::interfaceType, {TextOrEmpty(disk, "InterfaceType")}};
            verdicts.push_back(std::move(verdict));
            continue;
        }
        if (facts.mediaSearchFailure) {
            verdict.notes.push_back(*facts.mediaSearchFailure);
        } else {
            publisher.Publish(verdict, classesWithMedia);
        }
        publisher.Publish(verdict, classesWithoutMedia);
        verdict.notes.push_back(Events(facts, place));
        verdict.notes.push_back(Attachment(facts, place));
        if (auto missing = MissingSerialNumber(facts, place)) {
            verdict.notes.push_back(*std::move(missing));
        }
        verdict.notes.push_back(ShownPartition(facts, place));
        verdicts.push_back(std::move(verdict));
    }
    return verdicts;
}

}  // namespace qv::explain
