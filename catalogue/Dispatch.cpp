// NativeAPI's catalogue operations: they find the builder of a class by name.
#include <algorithm>

#include "NativeAPI/NativeAPI.h"
#include "catalogue/Classes.h"
#include "catalogue/Hierarchy.h"
#include "source/Text.h"

namespace qv {

RecordList NativeAPI::BuildInstances(std::string_view className, std::uint32_t mode,
                                     std::string_view path, const EndpointFilter& endpoint) const {
    const auto classes = PublishedClasses();
    const auto found = std::ranges::find_if(classes, [className](const PublishedClass& one) {
        return EqualsIgnoringCase(one.name, className);
    });
    if (found == classes.end()) {
        return {};
    }
    const Request request{className, mode, path, endpoint};
    return found->association != nullptr ? getAssociation(*found->association, request)
                                         : (this->*found->builder)(request);
}

RecordList NativeAPI::BuildAllInstances(std::string_view className, std::uint32_t mode) const {
    return BuildInstances(className, mode, {});
}

bool NativeAPI::IsOfClass(std::string_view className, std::string_view name) {
    return IsClassOrAncestor(FindClassNode(className), name);
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
