#include "NativeAPI/PhysicalMedia.h"

#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"

namespace qv {

std::optional<PhysicalMedia> QueryMediaOfDisk(const platform::QueryPort& queries,
                                              const platform::Row& disk) {
    platform::Rows media;
    queries.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_PhysicalMedia", media);
    const platform::Row* own = FindMediaOfDisk(disk, media);
    if (own == nullptr) {
        return std::nullopt;
    }
    return PhysicalMedia{TextOrEmpty(*own, "SerialNumber"), TextOrEmpty(*own, "Tag")};
}

}  // namespace qv
