#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// The properties of a row, in order.
using RowProperties = std::vector<std::pair<std::string, CimValue>>;

/// A recorded row and what is found out about it once, so that no query takes paths apart again.
struct RecordedRow {
    std::string className;
    RowProperties properties;
    /// The relative path by which the row is named: its keys in alphabetical order; without keys
    /// where the class has no known key or the row no value for it.
    ObjectPath path;
    std::vector<Reference> references;  ///< in the order of the properties

    const CimValue* FindProperty(std::string_view name) const;
};

/// Finds out the path and the references of a row. The key of a class is known for the source
/// classes; any other class has its references as keys.
RecordedRow MakeRow(std::string className, RowProperties properties);

}  // namespace qv::service
