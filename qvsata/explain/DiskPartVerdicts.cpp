// The verdicts on the rows that tell more about disks: media, partitions and their links, failure
// predictions.
#include <algorithm>
#include <utility>

#include "qvsata/explain/Facts.h"
#include "source/PropertyReaders.h"

namespace qv::explain {
namespace {

// Sets the verdict on a row that belongs to published disks, or to unpublished ones only; returns
// false for a row that belongs to none.
template <typename Belongs>
bool BelongsToDisks(const Facts& facts, Verdict& verdict, Belongs belongs, Rule toPublished,
                    Rule toUnpublished) {
    verdict.disks = DisksWith(facts, true, belongs);
    const bool isUsed = !verdict.disks.empty();
    if (!isUsed) {
        verdict.disks = DisksWith(facts, false, belongs);
    }
    verdict.outcome = isUsed ? Outcome::used : Outcome::unpublished;
    verdict.reason = Finding{isUsed ? toPublished : toUnpublished, {NamesOf(facts, verdict.disks)}};
    return !verdict.disks.empty();
}

Verdict MediaVerdict(const Facts& facts, const std::shared_ptr<const platform::Row>& media) {
    const std::string tag = TextOrEmpty(*media, "Tag");
    Verdict verdict{source::media, tag, tag};
    const auto takes = [&](std::size_t disk) { return facts.mediaOfDisk[disk] == media.get(); };
    const platform::Rows alone{media};
    const auto takesAlone = [&](std::size_t disk) {
        // A disk that cannot be compared, or has no media row, takes none.
        return facts.mediaOfDisk[disk] != nullptr &&
               FindMediaOfDisk(*facts.rows.disks[disk], alone) != nullptr;
    };
    if (verdict.disks = DisksWith(facts, true, takes); !verdict.disks.empty()) {
        if (auto failure = MediaSearchFailure(facts)) {
            verdict.outcome = Outcome::unpublished;
            verdict.reason = *std::move(failure);
            return verdict;
        }
        const std::string serialNumber = TextOrEmpty(*media, "SerialNumber");
        verdict.outcome = Outcome::used;
        verdict.reason =
            serialNumber.empty()
                ? Finding{Rule::hasNoText, {NamesOf(facts, verdict.disks)}}
                : Finding{Rule::hasSerialNumber, {NamesOf(facts, verdict.disks), serialNumber}};
        return verdict;
    }
    if (verdict.disks = DisksWith(facts, true, takesAlone); !verdict.disks.empty()) {
        verdict.outcome = Outcome::unpublished;
        verdict.reason = Finding{Rule::isLaterMedia, {NamesOf(facts, verdict.disks)}};
        return verdict;
    }
    if (verdict.disks = DisksWith(facts, false, takesAlone); !verdict.disks.empty()) {
        verdict.outcome = Outcome::unpublished;
        verdict.reason = Finding{Rule::isMediaOfUnpublished, {NamesOf(facts, verdict.disks)}};
        return verdict;
    }
    LeaveOut(facts, verdict, {source::disks}, {Rule::isMediaOfNone, {tag}});
    return verdict;
}

Verdict PartitionVerdict(const Facts& facts, const platform::Row& partition) {
    const std::string id = TextOrEmpty(partition, "DeviceID");
    Verdict verdict{source::partitions, id, id};
    const auto of = [&facts](std::size_t disk) {
        return facts.partitions.PartitionsOfDisk(TextOrEmpty(*facts.rows.disks[disk], "DeviceID"));
    };
    const auto shown = DisksWith(facts, true, [&](std::size_t disk) {
        const auto partitions = of(disk);
        return !partitions.empty() && partitions.back() == &partition;
    });
    if (!shown.empty()) {
        verdict.disks = shown;
        verdict.outcome = Outcome::used;
        verdict.reason = Finding{Rule::isShown, {NamesOf(facts, shown)}};
        return verdict;
    }
    verdict.disks = DisksWith(facts, true, [&](std::size_t disk) {
        return std::ranges::count(of(disk), &partition) != 0;
    });
    if (!verdict.disks.empty()) {
        verdict.outcome = Outcome::unpublished;
        verdict.reason = Finding{Rule::isNotLast, {NamesOf(facts, verdict.disks)}};
        return verdict;
    }
    verdict.disks = DisksWith(facts, false, [&](std::size_t disk) {
        const std::string deviceId = TextOrEmpty(*facts.rows.disks[disk], "DeviceID");
        return std::ranges::count(facts.allPartitions.PartitionsOfDisk(deviceId), &partition) != 0;
    });
    if (!verdict.disks.empty()) {
        verdict.outcome = Outcome::unpublished;
        verdict.reason = Finding{Rule::isOfUnpublished, {NamesOf(facts, verdict.disks)}};
        return verdict;
    }
    LeaveOut(facts, verdict, {source::partitionLinks, source::disks}, {Rule::isOfNoDisk});
    return verdict;
}

Verdict PartitionLinkVerdict(const Facts& facts, const std::shared_ptr<const platform::Row>& link) {
    const std::string disk = TextOrEmpty(*link, "Antecedent");
    const std::string partition = TextOrEmpty(*link, "Dependent");
    Verdict verdict{source::partitionLinks, KeyIn(disk) + " - " + KeyIn(partition),
                    disk + '|' + partition};
    const PartitionLinks alone(facts.rows.disks, {link}, facts.rows.partitions);
    const auto joined = [&](std::size_t place) {
        return !alone.PartitionsOfDisk(TextOrEmpty(*facts.rows.disks[place], "DeviceID")).empty();
    };
    const auto shown = [&](std::size_t place) {
        const std::string id = TextOrEmpty(*facts.rows.disks[place], "DeviceID");
        return joined(place) &&
               facts.partitions.PartitionsOfDisk(id).back() == alone.PartitionsOfDisk(id).back();
    };
    if (!BelongsToDisks(facts, verdict, joined, Rule::joinsPartition, Rule::linksUnpublished)) {
        LeaveOut(facts, verdict, {source::disks, source::partitions},
                 {Rule::linksNothing, {KeyIn(disk), KeyIn(partition)}});
    } else if (verdict.outcome == Outcome::used && DisksWith(facts, true, shown).empty()) {
        verdict.outcome = Outcome::unpublished;
        verdict.reason = Finding{Rule::joinsEarlierPartition, {NamesOf(facts, verdict.disks)}};
    }
    return verdict;
}

Verdict PredictionVerdict(const Facts& facts, const platform::Row& prediction) {
    const std::string name = TextOrEmpty(prediction, "InstanceName");
    Verdict verdict{source::predictions, name, name};
    const auto predicts = [&](std::size_t disk) { return facts.Predicts(prediction, disk); };
    const bool fails = PredictsFailure(prediction);
    if (!BelongsToDisks(facts, verdict, predicts, fails ? Rule::predictsFailure : Rule::predicts,
                        fails ? Rule::predictsFailureOfUnpublished : Rule::predictsUnpublished)) {
        LeaveOut(facts, verdict, {source::disks},
                 {fails ? Rule::predictsFailureOfNone : Rule::predictsNone, {name}});
    }
    return verdict;
}

}  // namespace

std::vector<Verdict> MediaVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    for (const auto& media : facts.rows.media) {
        verdicts.push_back(MediaVerdict(facts, media));
    }
    return verdicts;
}

std::vector<Verdict> PartitionVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    for (const auto& partition : facts.rows.partitions) {
        verdicts.push_back(PartitionVerdict(facts, *partition));
    }
    return verdicts;
}

std::vector<Verdict> PartitionLinkVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    for (const auto& link : facts.rows.partitionLinks) {
        verdicts.push_back(PartitionLinkVerdict(facts, link));
    }
    return verdicts;
}

std::vector<Verdict> PredictionVerdicts(const Facts& facts) {
    std::vector<Verdict> verdicts;
    for (const auto& prediction : facts.rows.predictions) {
        verdicts.push_back(PredictionVerdict(facts, *prediction));
    }
    return verdicts;
}

}  // namespace qv::explain
