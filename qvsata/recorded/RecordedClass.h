#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "qvsata/recorded/RecordedRow.h"

namespace qv::service {

using RecordedRowPtr = std::shared_ptr<const RecordedRow>;
using RecordedRows = std::vector<RecordedRowPtr>;

/// A recorded class: its rows in the order of the recording, found by their paths and by what their
/// references name.
class RecordedClass {
public:
    explicit RecordedClass(std::string name) : name_(std::move(name)) {}

    const std::string& Name() const { return name_; }
    const RecordedRows& Rows() const { return rows_; }
    /// Whether queries of the class fail; it has no rows then.
    bool Fails() const { return fails_; }

    void Add(RowProperties properties);
    void Fail();

    /// Returns the first row that the path names, or null.
    RecordedRowPtr Find(const ObjectPath& path) const;

    /// Returns the rows of which a reference may name the path: each row whose reference does is
    /// among them.
    RecordedRows Referencing(const ObjectPath& path) const;

private:
    using Places = std::unordered_map<std::string, RecordedRows>;

    std::string name_;
    RecordedRows rows_;
    bool fails_ = false;
    Places byPath_;       ///< by the identity of the row's path
    Places byReference_;  ///< by the identity of a reference
};

}  // namespace qv::service
