#include "qvsata/view/events/WatchedText.h"

#include <algorithm>

#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

std::string Line(std::string_view kind, const OsDisk& disk, const std::string& reason) {
    return std::string(kind) + ' ' + Printable(DiskName(disk.number, disk.model) + ": " + reason) +
           '\n';
}

}  // namespace

std::string WatchedText(const std::vector<OsDisk>& disks) {
    const auto watched =
        std::ranges::count_if(disks, [](const OsDisk& disk) { return disk.whyUnwatched.empty(); });
    std::string text = "watching " + std::to_string(watched) + " of " +
                       std::to_string(disks.size()) + (disks.size() == 1 ? " disk" : " disks") +
                       '\n';
    for (const OsDisk& disk : disks) {
        const Health health = HealthOf(disk);
        if (!disk.whyUnwatched.empty()) {
            text += Line("not watched:", disk, disk.whyUnwatched);
        }
        if (SeverityOf(health) != Severity::fine) {
            text += Line("not OK already:", disk, health.word);
        }
    }
    return text;
}

}  // namespace qv::view
