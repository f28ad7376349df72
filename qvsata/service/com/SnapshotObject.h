#pragma once

#include <memory>
#include <string>
#include <vector>

#include "qvsata/service/RecordedHost.h"
#include "qvsata/service/com/ReadableObject.h"

namespace qv::service {

/// The properties of an object, system properties among them, as they were when they were read.
/// Nothing changes it, so that copies share it.
using Snapshot = std::shared_ptr<const std::vector<ObjectProperty>>;

/// An object that a query returned: it can only be read.
class SnapshotObject final : public ReadableObject {
public:
    explicit SnapshotObject(Snapshot snapshot) : snapshot_(std::move(snapshot)) {}

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;

    STDMETHODIMP Clone(IWbemClassObject** copy) override;

private:
    Snapshot snapshot_;
};

/// Reads a row of a recorded host.
Snapshot SnapshotOf(const RecordedObject& object);

/// Reads an object of a management service.
Snapshot SnapshotOf(IWbemClassObject& object);

/// Reads what a query selected of an object: the properties named that the object has, in the
/// order of the object, and the system properties.
Snapshot SnapshotOf(IWbemClassObject& object, const std::vector<std::string>& selected);

}  // namespace qv::service
