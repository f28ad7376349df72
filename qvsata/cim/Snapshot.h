#pragma once

#include <string>
#include <vector>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// The properties of an object, system properties among them, as they were when they were read.
class Snapshot final : public Object {
public:
    explicit Snapshot(std::vector<ObjectProperty> properties);

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;
    std::span<const Reference> References() const override { return references_; }

private:
    std::vector<ObjectProperty> properties_;
    std::vector<Reference> references_;
};

/// Returns what a query selected of an object: the properties named that the object has, in the
/// order of the object, and the system properties.
ObjectPtr Select(const Object& object, const std::vector<std::string>& selected);

}  // namespace qv::service
