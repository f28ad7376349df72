#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/service/RecordedMachine.h"

namespace qv::test {

/// Returns a recorded host's answer to a client.
inline service::Answer Ask(const service::RecordedHost& host, std::string_view nameSpace,
                           std::string_view query) {
    const auto opened =
        service::OpenRecorded(std::make_shared<const service::RecordedHost>(host), nameSpace);
    return opened ? opened->Query(query)
                  : service::Answer{service::status::invalidNamespace, {}, {}};
}

/// Returns the property of an object; null if it has none of that name.
inline std::optional<service::CimValue> ValueOf(const service::Object& object,
                                                std::string_view name) {
    const auto property = object.Find(name);
    return property ? std::optional(property->value) : std::nullopt;
}

/// Returns the names of recorded namespaces or classes, in order.
template <typename Named>
std::vector<std::string> NamesOf(const Named& named) {
    std::vector<std::string> names;
    for (const auto& one : named) {
        names.push_back(one.Name());
    }
    return names;
}

}  // namespace qv::test
