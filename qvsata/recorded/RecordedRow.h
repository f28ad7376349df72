#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// The properties of a row, in order.
using RowProperties = std::vector<std::pair<std::string, CimValue>>;

/// A recorded row with its path and references, which are parsed once and not for each query.
struct RecordedRow {
    std::string className;
    RowProperties properties;
    /// The row's relative path, with its keys in alphabetical order; without keys if the key of the
    /// class is unknown or the row has no value for it.
    ObjectPath path;
    std::vector<Reference> references;  ///< in the order of the properties

    const CimValue* FindProperty(std::string_view name) const;
};

/// Makes a row with its path and references. The keys of the source classes are known; the keys of
/// any other class are its references.
RecordedRow MakeRow(std::string className, RowProperties properties);

}  // namespace qv::service
