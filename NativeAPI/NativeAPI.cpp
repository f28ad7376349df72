// From a class name to its builder. The builders are in the files named after their classes.
#include "NativeAPI/NativeAPI.h"

#include <algorithm>
#include <utility>

#include "source/EmbeddedPaths.h"

namespace qv {

RecordList NativeAPI::BuildInstances(std::string_view className, std::uint32_t mode,
                                     std::string_view path, const EndpointFilter& endpoint) const {
    const PublishedClass* const published = classes_.Find(className);
    if (published == nullptr) {
        return {};
    }
    const Request request{className, mode, path, endpoint};
    return published->association != nullptr ? getAssociation(*published->association, request)
                                             : (this->*published->builder)(request);
}

RecordList NativeAPI::BuildAllInstances(std::string_view className, std::uint32_t mode) const {
    return BuildInstances(className, mode, {});
}

std::optional<InstanceRecord> NativeAPI::FindInstance(std::string_view className,
                                                      std::string path) const {
    ReduceEmbeddedPaths(path);
    RecordList records = BuildInstances(className, mode::allProperties, path);
    return records.empty() ? std::nullopt : std::optional(std::move(records.front()));
}

RecordList NativeAPI::FindRecordByKey(std::string_view className, std::string_view keyName,
                                      std::string_view keyValue) const {
    const RecordList candidates = BuildAllInstances(className, mode::keysOnly);
    const auto found = std::ranges::find_if(candidates, [&](const InstanceRecord& record) {
        return GetPropertyEntry(record, keyName).value == keyValue;
    });
    if (found == candidates.end()) {
        return {};
    }
    RecordList full = BuildInstances(className, mode::foundByKey, BuildObjectPath(*found));
    return full.size() == 1 ? full : RecordList{};
}

}  // namespace qv
