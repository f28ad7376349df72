#include "NativeAPI/PhysicalMedia.h"

#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"

namespace qv {
namespace {

PhysicalMedia FactsOf(const platform::Row& media) {
    return {TextOrEmpty(media, "SerialNumber"), TextOrEmpty(media, "Tag")};
}

}  // namespace

std::optional<PhysicalMedia> QueryMediaOfDisk(const platform::QueryPort& queries,
                                              const platform::Row& disk) {
    if (const auto found = queries.FindRow(cimNamespace, "Win32_PhysicalMedia", "Tag",
                                           TextOrEmpty(disk, "DeviceID"))) {
        if (found->rowCount != 0) {
            RequireComparableWithMedia(disk);
        }
        return found->row ? std::optional(FactsOf(*found->row)) : std::nullopt;
    }
    platform::Rows media;
    queries.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_PhysicalMedia", media);
    const platform::Row* own = FindMediaOfDisk(disk, media);
    return own == nullptr ? std::nullopt : std::optional(FactsOf(*own));
}

}  // namespace qv
