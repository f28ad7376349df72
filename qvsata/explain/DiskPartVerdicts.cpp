// The verdicts on the rows that tell more about disks: media, partitions and their links, failure
// predictions.
#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "qvsata/explain/Facts.h"
#include "source/PropertyReaders.h"

namespace qv::explain {
namespace {

// Sets the verdict on a row that belongs to disks: to the published ones among them, or to
// unpublished ones only. Returns false for a row that belongs to none.
bool BelongsToDisks(const Facts& facts, Verdict& verdict, const Places& disks, Rule toPublished,
                    Rule toUnpublished) {
    verdict.disks = DisksAmong(facts, disks, true);
    const bool isUsed = !verdict.disks.empty();
    if (!isUsed) {
        verdict.disks = disks;
    }
    verdict.outcome = isUsed ? Outcome::used : Outcome::unpublished;
    verdict.reason = Finding{isUsed ? toPublished : toUnpublished, {NamesOf(facts, verdict.disks)}};
    return !verdict.disks.empty();
}

template <typename Key>
using DisksByKey = std::unordered_map<Key, Places>;

// Returns the disks that have a media row, by its Tag.
DisksByKey<std::string> DisksByTag(const Facts& facts) {
    DisksByKey<std::string> disks;
    for (std::size_t place = 0; place < facts.mediaOfDisk.size(); ++place) {
        if (const platform::Row* const media = facts.mediaOfDisk[place]) {
            disks[TextOrEmpty(*media, "Tag")].push_back(place);
        }
    }
    return disks;
}

Verdict MediaVerdict(const Facts& facts, const DisksByKey<std::string>& disks,
                     const platform::Row& media) {
    const std::string tag = TextOrEmpty(media, "Tag");
    Verdict verdict{source::media, tag, tag};
    if (!BelongsToDisks(facts, verdict, FindOrEmpty(disks, tag), Rule::hasSerialNumber,
                        Rule::isMediaOfUnpublished)) {
        LeaveOut(facts, verdict, {source::disks}, {Rule::isMediaOfNone, {tag}});
    } else if (verdict.outcome == Outcome::used) {
        const std::string serialNumber = TextOrEmpty(media, "SerialNumber");
        if (facts.mediaOfDisk[verdict.disks.front()] != &media) {
            verdict.outcome = Outcome::unpublished;
            verdict.reason->rule = Rule::isLaterMedia;
        } else if (facts.mediaSearchFailure) {
            verdict.outcome = Outcome::unpublished;
            verdict.reason = facts.mediaSearchFailure;
        } else if (serialNumber.empty()) {
            verdict.reason->rule = Rule::hasNoText;
        } else {
            verdict.reason->values.push_back(serialNumber);
        }
    }
    return verdict;
}

using DisksOfPartition = DisksByKey<const platform::Row*>;

DisksOfPartition DisksOfPartitions(const Facts& facts) {
    DisksOfPartition disks;
    for (std::size_t disk = 0; disk < facts.partitionsOfDisk.size(); ++disk) {
        for (const platform::Row* const partition : facts.partitionsOfDisk[disk]) {
            Places& places = disks[partition];
            if (places.empty() || places.back() != disk) {
                places.push_back(disk);
            }
        }
    }
    return disks;
}

// Returns those of a partition's disks that show it: it is their last.
Places ShowingDisks(const Facts& facts, const Places& disks, const platform::Row& partition) {
    Places showing = disks;
    std::erase_if(showing, [&](std::size_t disk) {
        return facts.partitionsOfDisk[disk].back() != &partition;
    });
    return showing;
}

Verdict PartitionVerdict(const Facts& facts, const DisksOfPartition& disks,
                         const platform::Row& partition) {
    const std::string id = TextOrEmpty(partition, "DeviceID");
    Verdict verdict{source::partitions, id, id};
    if (!BelongsToDisks(facts, verdict, FindOrEmpty(disks, &partition), Rule::isNotLast,
                        Rule::isOfUnpublished)) {
        LeaveOut(facts, verdict, {source::partitionLinks, source::disks}, {Rule::isOfNoDisk});
    } else if (verdict.outcome == Outcome::used) {
        if (Places showing = ShowingDisks(facts, verdict.disks, partition); showing.empty()) {
            verdict.outcome = Outcome::unpublished;
        } else {
            verdict.disks = std::move(showing);
            verdict.reason = Finding{Rule::isShown, {NamesOf(facts, verdict.disks)}};
        }
    }
    return verdict;
}

Verdict PartitionLinkVerdict(const Facts& facts, const PartitionNames& names,
                             const platform::Row& link) {
    const std::string disk = TextOrEmpty(link, "Antecedent");
    const std::string partition = TextOrEmpty(link, "Dependent");
    Verdict verdict{source::partitionLinks, KeyIn(disk) + " - " + KeyIn(partition),
                    disk + '|' + partition};
    const auto joined = names.JoinedBy(link);
    if (!joined || !BelongsToDisks(facts, verdict, joined->disks, Rule::joinsPartition,
                                   Rule::linksUnpublished)) {
        LeaveOut(facts, verdict, {source::disks, source::partitions},
                 {Rule::linksNothing, {KeyIn(disk), KeyIn(partition)}});
    } else if (verdict.outcome == Outcome::used &&
               ShowingDisks(facts, verdict.disks, *facts.rows.partitions[joined->partition])
                   .empty()) {
        verdict.outcome = Outcome::unpublished;
        verdict.reason->rule = Rule::joinsEarlierPartition;
    }
    return verdict;
}

Verdict PredictionVerdict(const Facts& facts, std::size_t place) {
    const platform::Row& prediction = *facts.rows.predictions[place];
    const std::string name = TextOrEmpty(prediction, "InstanceName");
    Verdict verdict{source::predictions, name, name};
    const bool fails = PredictsFailure(prediction);
    if (!BelongsToDisks(facts, verdict, facts.disksOfPrediction[place],
                        fails ? Rule::predictsFailure : Rule::predicts,
                        fails ? Rule::predictsFailureOfUnpublished : Rule::predictsUnpublished)) {
        LeaveOut(facts, verdict, {source::disks},
                 {fails ? Rule::predictsFailureOfNone : Rule::predictsNone, {name}});
    }
    return verdict;
}

}  // namespace

std::vector<Verdict> MediaVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    const DisksByKey<std::string> disks = DisksByTag(facts);
    for (const auto& media : facts.rows.media) {
        verdicts.push_back(MediaVerdict(facts, disks, *media));
    }
    return verdicts;
}

std::vector<Verdict> PartitionVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    const DisksOfPartition disks = DisksOfPartitions(facts);
    for (const auto& partition : facts.rows.partitions) {
        verdicts.push_back(PartitionVerdict(facts, disks, *partition));
    }
    return verdicts;
}

std::vector<Verdict> PartitionLinkVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    const PartitionNames names(facts.rows.disks, facts.rows.partitions);
    for (const auto& link : facts.rows.partitionLinks) {
        verdicts.push_back(PartitionLinkVerdict(facts, names, *link));
    }
    return verdicts;
}

std::vector<Verdict> PredictionVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    for (std::size_t place = 0; place < facts.rows.predictions.size(); ++place) {
        verdicts.push_back(PredictionVerdict(facts, place));
    }
    return verdicts;
}

}  // namespace qv::explain
