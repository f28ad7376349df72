#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// The properties of a row, in order.
using RowProperties = std::vector<std::pair<std::string, CimValue>>;

/// A recorded row with the keys of its path and its references, which are parsed once and not for
/// each query.
struct RecordedRow {
    std::shared_ptr<const std::string> className;  ///< shared by all rows of the class
    RowProperties properties;
    /// Those of the row's path, in alphabetical order; empty if the key of the class is unknown or
    /// the row has no value for it.
    std::vector<PathKey> keys;
    std::vector<Reference> references;  ///< in the order of the properties

    const CimValue* FindProperty(std::string_view name) const;
};

/// Makes a row with its keys and references. The keys of the source classes are known; the keys of
/// any other class are its references.
RecordedRow MakeRow(std::shared_ptr<const std::string> className, RowProperties properties);

}  // namespace qv::service
