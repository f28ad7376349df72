// The verdicts on the rows that attach disks and channels to controllers.
#include <algorithm>
#include <utility>

#include "qvsata/explain/Facts.h"
#include "source/PropertyReaders.h"

namespace qv::explain {
namespace {

// What a link would attach if it were the only one.
struct Attached {
    std::vector<std::size_t> disks;
    std::vector<std::size_t> unpublishedDisks;
    std::vector<const platform::Row*> channels;
};

Attached AttachedBy(const Facts& facts, const std::shared_ptr<const platform::Row>& link) {
    const ControllerLinks alone({link}, facts.rows.controllers);
    const auto names = [&](std::size_t disk) {
        return alone.ControllerOfDisk(facts.diskIds[disk]) != nullptr;
    };
    Attached attached{DisksWith(facts, true, names), DisksWith(facts, false, names), {}};
    for (const auto& row : facts.rows.controllers) {
        if (IsChannel(TextOrEmpty(*row, "PNPDeviceID")) &&
            alone.ControllerOfChannel(TextOrEmpty(*row, "__PATH")) != nullptr) {
            attached.channels.push_back(row.get());
        }
    }
    return attached;
}

Verdict LinkVerdict(const Facts& facts, const ControllerPaths& paths,
                    const std::shared_ptr<const platform::Row>& link) {
    const std::string antecedent = TextOrEmpty(*link, "Antecedent");
    const std::string dependent = TextOrEmpty(*link, "Dependent");
    Verdict verdict{source::links, KeyIn(antecedent) + " - " + KeyIn(dependent),
                    antecedent + '|' + dependent};
    const auto* const controller = paths.NamedBy(*link);
    if (controller == nullptr) {
        LeaveOut(facts, verdict, {source::controllers},
                 {Rule::namesNoController, {KeyIn(antecedent)}});
        return verdict;
    }
    Attached attached = AttachedBy(facts, link);
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
    for (const auto& link : facts.rows.links) {
        verdicts.push_back(LinkVerdict(facts, paths, link));
    }
    return verdicts;
}

}  // namespace qv::explain
