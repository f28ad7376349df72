#pragma once

#include <string>
#include <vector>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// A copy of an object's properties, including system properties.
class Snapshot final : public Object {
public:
    /// `shownSystemNames` are system properties among the properties.
    explicit Snapshot(std::vector<ObjectProperty> properties,
                      std::vector<std::string> shownSystemNames = {});

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;
    std::vector<std::string> ShownNames() const override;
    std::vector<Reference> References() const override { return ReferencesAmong(properties_); }

private:
    std::vector<ObjectProperty> properties_;
    std::vector<std::string> shownSystemNames_;
};

/// Returns an object with the selected properties that `object` has, in the object's order, and the
/// system properties, of which it shows the selected ones.
ObjectPtr Select(const Object& object, const std::vector<std::string>& selected);

/// Returns an object with the keys and the system properties of `object`.
ObjectPtr SelectKeys(const Object& object);

}  // namespace qv::service
