#pragma once

#include <string>
#include <utility>

#include "qvsata/cim/PutRules.h"
#include "source/TypedValue.h"
#include "tests/golden/GoldenText.h"

namespace qv::test {

/// Returns a record in the form of its published instance; `prefix`: the server and the namespace
/// of references.
inline PublishedInstance AsPublished(const InstanceRecord& record, const std::string& prefix) {
    PublishedInstance instance{record.className, {}};
    for (const PropertyEntry& entry : record.properties) {
        TypedValue value;
        if (ToTypedValue(entry, value)) {
            if (auto* reference = std::get_if<Reference>(&value)) {
                reference->path.insert(0, prefix);
            }
            service::PutValue put = service::AsPut(value);
            instance.properties.push_back({entry.name, put.type, std::move(put.value), entry.key});
        }
    }
    return instance;
}

}  // namespace qv::test
