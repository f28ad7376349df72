#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/service/RecordedRow.h"
#include "source/Text.h"

namespace qv::service {

using RecordedRowPtr = std::shared_ptr<const RecordedRow>;

/// A recorded class.
struct ClassRows {
    std::string name;
    std::vector<RecordedRowPtr> rows;
    bool fails = false;  ///< its queries fail; it has no rows then
};

/// A recorded namespace with its classes in the order of the recording.
struct RecordedNamespace {
    std::string name;
    std::vector<ClassRows> classes;
};

/// A class by name in any letter case; null where there is none, const as the namespace is.
template <typename NamespaceType>
auto FindClass(NamespaceType& nameSpace, std::string_view className)
    -> decltype(nameSpace.classes.data()) {
    const auto found =
        std::ranges::find_if(nameSpace.classes, [className](const ClassRows& candidate) {
            return EqualsIgnoringCase(candidate.name, className);
        });
    return found == nameSpace.classes.end() ? nullptr : &*found;
}

}  // namespace qv::service
