#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "qvsata/cim/ObjectPath.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::test {

using view::PublishedObject;

/// Returns an instance with one key.
inline PublishedObject Instance(const std::string& className, const std::string& key,
                                const std::string& value) {
    PublishedObject object{className,
                           className + '.' + key + "=\"" + service::EscapePathValue(value) + '"',
                           {{key, value}},
                           {}};
    return object;
}

/// Returns an association of two instances, with their paths as a provider writes them.
inline PublishedObject Link(const std::string& className, const std::string& firstRole,
                            const PublishedObject& first, const std::string& secondRole,
                            const PublishedObject& second) {
    constexpr std::string_view prefix = "\\\\SERVER\\root\\QVQ:";
    return {className,
            className,
            {},
            {{firstRole, std::string(prefix) + first.path},
             {secondRole, std::string(prefix) + second.path}}};
}

}  // namespace qv::test
