#pragma once

#include <string_view>

#include "qvsata/cim/Instance.h"
#include "source/PropertyTarget.h"

namespace qv::service {

/// A portable instance that is filled as the library fills an instance of the management service.
/// Each value is put and recorded by PutOn. An entry of an unpublished type is not put.
class InstanceTarget final : public PropertyTarget {
public:
    /// Both must outlive the object; `namespacePrefix` (\\server\namespace:) is put before
    /// references.
    InstanceTarget(Instance& instance, std::string_view namespacePrefix)
        : instance_(instance), namespacePrefix_(namespacePrefix) {}

    Status Put(const PropertyEntry& property) override;
    Status PutWideText(std::string_view name, std::wstring_view text) override;

private:
    Instance& instance_;
    std::string_view namespacePrefix_;
};

}  // namespace qv::service
