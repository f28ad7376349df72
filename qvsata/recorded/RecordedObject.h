#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/recorded/RecordedRow.h"

namespace qv::service {

/// Where recorded objects are published: what the objects of one connection have in common.
struct RecordedScope {
    std::string server;
    std::string nameSpace;  ///< as the connection spelled it, with backslashes
};

/// A row as an object. __CLASS, __SERVER, __NAMESPACE, __RELPATH and __PATH are derived unless the
/// row gives them; the paths are null where a key has no value. Other system properties are those
/// that the row gives.
class RecordedObject final : public Object {
public:
    RecordedObject(std::shared_ptr<const RecordedRow> row,
                   std::shared_ptr<const RecordedScope> scope)
        : row_(std::move(row)), scope_(std::move(scope)) {}

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;
    std::string ClassName() const override { return row_->className; }
    std::span<const Reference> References() const override { return row_->references; }

private:
    std::optional<CimValue> Get(std::string_view name) const;

    std::shared_ptr<const RecordedRow> row_;
    std::shared_ptr<const RecordedScope> scope_;
};

/// Returns the CIM type that a recorded value has: a whole number is sint32, null is string; an
/// array has the type of its elements.
CimType TypeOf(const CimValue& value);

}  // namespace qv::service
