#include "qvsata/view/diff/Belongings.h"

#include <algorithm>

#include "qvsata/view/text/Columns.h"

namespace qv::view {

std::string CountText(const std::vector<const Item*>& items) {
    const auto associations = static_cast<std::size_t>(
        std::ranges::count_if(items, [](const Item* item) { return item->isAssociation; }));
    const std::size_t instances = items.size() - associations;
    std::string text = instances == 0 ? "" : CountOf(instances, "instance");
    text += instances != 0 && associations != 0 ? " and " : "";
    return text + (associations == 0 ? "" : CountOf(associations, "association"));
}

Owners::Owners(const HostDiff& diff) : disks_(diff.disksOfEither) {
    for (const Item& item : diff.instances.gone) {
        Of(item).gone.push_back(&item);
    }
    for (const Item& item : diff.instances.appeared) {
        Of(item).appeared.push_back(&item);
    }
    for (const ChangedItem& item : diff.instances.changed) {
        Of(item.now).changed.push_back(&item);
    }
}

Belongings& Owners::Of(const Item& instance) {
    std::string owner;
    for (const Item& disk : disks_) {
        if (disk.key.size() > owner.size() && !TextMember(disk, "deviceId").empty() &&
            instance.key.find(disk.key) != std::string::npos) {
            owner = disk.key;
        }
    }
    return byKey_[owner];
}

}  // namespace qv::view
