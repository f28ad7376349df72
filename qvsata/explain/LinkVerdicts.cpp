// The verdicts on the rows that attach disks and channels to controllers.
#include <string>
#include <unordered_map>
#include <utility>

#include "qvsata/explain/Facts.h"
#include "source/PropertyReaders.h"

namespace qv::explain {
namespace {

using Channels = std::vector<const platform::Row*>;

// The disks and channels that links may name, in the forms in which they are compared.
struct NamedDevices {
    explicit NamedDevices(const Facts& facts) {
        for (std::size_t disk = 0; disk < facts.diskIds.size(); ++disk) {
            disks[ComparedDiskId(facts.diskIds[disk])].push_back(disk);
        }
        for (const auto& row : facts.rows.controllers) {
            const auto path = ComparedChannelPath(TextOrEmpty(*row, "__PATH"));
            if (path && IsChannel(TextOrEmpty(*row, "PNPDeviceID"))) {
                channels[*path].push_back(row.get());
            }
        }
    }

    std::unordered_map<std::string, Places> disks;
    std::unordered_map<std::string, Channels> channels;
};

struct Attached {
    Places disks;
    Places unpublishedDisks;
    Channels channels;
};

// Returns what a link would attach if it were the only one.
Attached AttachedBy(const Facts& facts, const NamedDevices& devices, const platform::Row& link) {
    Attached attached;
    const auto named = DeviceNamedBy(link);
    if (!named) {
        return attached;
    }
    const Places& disks = FindOrEmpty(devices.disks, named->diskId);
    attached.disks = DisksAmong(facts, disks, true);
    attached.unpublishedDisks = DisksAmong(facts, disks, false);
    attached.channels = FindOrEmpty(devices.channels, named->channelPath);
    return attached;
}

Verdict LinkVerdict(const Facts& facts, const ControllerPaths& paths, const NamedDevices& devices,
                    const platform::Row& link) {
    const std::string antecedent = TextOrEmpty(link, "Antecedent");
    const std::string dependent = TextOrEmpty(link, "Dependent");
    Verdict verdict{source::links, KeyIn(antecedent) + " - " + KeyIn(dependent),
                    antecedent + '|' + dependent};
    const auto* const controller = paths.NamedBy(link);
    if (controller == nullptr) {
        LeaveOut(facts, verdict, {source::controllers},
                 {Rule::namesNoController, {KeyIn(antecedent)}});
        return verdict;
    }
    Attached attached = AttachedBy(facts, devices, link);
    if (attached.disks.empty() && attached.channels.empty()) {
        verdict.disks = std::move(attached.unpublishedDisks);
        LeaveOut(facts, verdict, {source::disks, source::controllers},
                 verdict.disks.empty()
                     ? Finding{Rule::namesOther, {KeyIn(dependent)}}
                     : Finding{Rule::namesUnpublished, {NamesOf(facts, verdict.disks)}});
        return verdict;
    }
    verdict.disks = std::move(attached.disks);
    const bool isOfDisk = !verdict.disks.empty();
    const auto* const inUse =
        isOfDisk
            ? facts.links.ControllerOfDisk(facts.diskIds[verdict.disks.front()])
            : facts.links.ControllerOfChannel(TextOrEmpty(*attached.channels.front(), "__PATH"));
    const std::string device =
        isOfDisk ? NamesOf(facts, verdict.disks) : ControllerName(*attached.channels.front());
    const bool isUsed = inUse == controller;
    verdict.outcome = isUsed ? Outcome::used : Outcome::unpublished;
    verdict.reason =
        Finding{isUsed ? Rule::attaches : Rule::isReplaced, {device, ControllerName(*inUse)}};
    return verdict;
}

}  // namespace

std::vector<Verdict> LinkVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    const ControllerPaths paths(facts.rows.controllers);
    const NamedDevices devices(facts);
    for (const auto& link : facts.rows.links) {
        verdicts.push_back(LinkVerdict(facts, paths, devices, *link));
    }
    return verdicts;
}

}  // namespace qv::explain
