#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Status.h"
#include "qvsata/recorded/CopyOnWrite.h"
#include "qvsata/recorded/RecordedRow.h"

namespace qv::service {

using RecordedRows = std::deque<RecordedRow>;

/// A recorded class. Its rows keep the order of the recording and are indexed by their paths and by
/// the paths that their references name. Copies share the rows.
class RecordedClass {
public:
    explicit RecordedClass(std::string name) : name_(std::move(name)) {}

    const std::string& Name() const { return name_; }
    const RecordedRows& Rows() const;
    /// Returns the status with which queries of the class fail; nothing if they succeed. A class
    /// whose queries fail has no rows.
    std::optional<Status> Failure() const { return failure_; }

    void Add(RowProperties properties);
    void Fail(Status failure);

    /// Returns the first row that a path of the class names; null if there is none.
    const RecordedRow* Find(const ObjectPath& path) const;

    /// Returns the first row whose property is exactly a text; null if there is none. A row without
    /// a text there has the empty one.
    const RecordedRow* FindText(std::string_view property, std::string_view text) const;

    /// Returns the rows with a reference that may name the path. No row whose reference names it is
    /// missing.
    std::vector<const RecordedRow*> Referencing(const ObjectPath& path) const;

private:
    struct Content;

    std::string name_;
    CopyOnWrite<Content> content_;  ///< most classes have no rows
    std::optional<Status> failure_;
};

}  // namespace qv::service
