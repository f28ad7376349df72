#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Status.h"
#include "qvsata/recorded/RecordedRow.h"

namespace qv::service {

using RecordedRowPtr = std::shared_ptr<const RecordedRow>;
using RecordedRows = std::vector<RecordedRowPtr>;

/// A recorded class. Its rows keep the order of the recording and are indexed by their paths and by
/// the paths that their references name.
class RecordedClass {
public:
    explicit RecordedClass(std::string name)
        : name_(std::make_shared<const std::string>(std::move(name))) {}

    const std::string& Name() const { return *name_; }
    const RecordedRows& Rows() const { return rows_; }
    /// Returns the status with which queries of the class fail; nothing if they succeed. A class
    /// whose queries fail has no rows.
    std::optional<Status> Failure() const { return failure_; }

    void Add(RowProperties properties);
    void Fail(Status failure);

    /// Returns the first row that a path of the class names; null if there is none.
    RecordedRowPtr Find(const ObjectPath& path) const;

    /// Returns the rows with a reference that may name the path. No row whose reference names it is
    /// missing.
    RecordedRows Referencing(const ObjectPath& path) const;

private:
    using Places = std::unordered_map<std::string, RecordedRows>;

    std::shared_ptr<const std::string> name_;
    RecordedRows rows_;
    std::optional<Status> failure_;
    Places byKeys_;       ///< by the identity of the row's keys
    Places byReference_;  ///< by the identity of a reference
};

}  // namespace qv::service
