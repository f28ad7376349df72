#include "qvsata/explain/JoinLimit.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "source/PropertyReaders.h"
#include "source/SourceRules.h"

namespace qv::explain {
namespace {

/// @param disksOf returns the number of disks that a row names
template <typename DisksOf>
void CheckClass(std::string_view className, const platform::Rows& rows, std::size_t most,
                DisksOf disksOf) {
    std::size_t named = 0;
    for (const auto& row : rows) {
        named += disksOf(*row);
        if (named > most) {
            throw TooManyJoins(std::string(className) + " names disks", most, " times");
        }
    }
}

/// How many disks have a text.
class DiskCounts {
public:
    void Add(const std::string& text) { ++counts_[text]; }

    std::size_t Of(const std::string& text) const {
        const auto found = counts_.find(text);
        return found == counts_.end() ? 0 : found->second;
    }

private:
    std::unordered_map<std::string, std::size_t> counts_;
};

}  // namespace

void CheckJoins(const SourceRows& rows, std::size_t most) {
    DiskCounts deviceIds;
    DiskCounts comparedIds;
    std::vector<std::string> ids;
    for (const auto& disk : rows.disks) {
        ids.push_back(TextOrEmpty(*disk, "PNPDeviceID"));
        comparedIds.Add(ComparedDiskId(ids.back()));
        deviceIds.Add(TextOrEmpty(*disk, "DeviceID"));
    }
    CheckClass(source::media, rows.media, most,
               [&](const platform::Row& media) { return deviceIds.Of(TextOrEmpty(media, "Tag")); });
    CheckClass(source::links, rows.links, most, [&](const platform::Row& link) {
        const auto named = DeviceNamedBy(link);
        return named ? comparedIds.Of(named->diskId) : 0;
    });
    const PartitionNames partitions(rows.disks, rows.partitions);
    CheckClass(source::partitionLinks, rows.partitionLinks, most, [&](const platform::Row& link) {
        const auto joined = partitions.JoinedBy(link);
        return joined ? joined->disks.size() : 0;
    });
    const PredictedDisks predicted(std::move(ids));
    CheckClass(source::predictions, rows.predictions, most,
               [&](const platform::Row& prediction) { return predicted.Of(prediction).size(); });
}

}  // namespace qv::explain
