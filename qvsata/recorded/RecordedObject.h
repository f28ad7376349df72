#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/recorded/RecordedRow.h"

namespace qv::service {

/// What the objects of one connection have in common.
struct RecordedScope {
    std::string server;
    std::string nameSpace;  ///< as the connection spelled it, with backslashes
};

/// A row as an object. __CLASS, __SERVER, __NAMESPACE, __RELPATH and __PATH are derived unless the
/// row states them; the paths are null if a key has no value. Other system properties exist only if
/// the row states them.
class RecordedObject final : public Object {
public:
    RecordedObject(std::shared_ptr<const RecordedRow> row,
                   std::shared_ptr<const RecordedScope> scope)
        : row_(std::move(row)), scope_(std::move(scope)) {}

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;
    std::string ClassName() const override { return row_->ClassName(); }
    std::vector<Reference> References() const override { return row_->References(); }

private:
    std::optional<CimValue> Get(std::string_view name) const;

    std::shared_ptr<const RecordedRow> row_;
    std::shared_ptr<const RecordedScope> scope_;
};

/// Returns the CIM type of a recorded value: sint32 for a whole number, string for null, the
/// element type for an array.
CimType TypeOf(const CimValue& value);

}  // namespace qv::service
