#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/service/ObjectPath.h"
#include "qvsata/service/RecordedHost.h"

namespace qv::service {

/// A recorded row and what is found out about it once, so that no query takes paths apart again.
struct RecordedRow {
    std::string className;
    RowProperties properties;
    /// The relative path by which the row is named: its keys in alphabetical order; without keys
    /// where the class has no known key or the row no value for it.
    ObjectPath path;
    /// The references among the properties: name and the path that it holds.
    std::vector<std::pair<std::string, ObjectPath>> references;
    bool isClass = false;  ///< a class definition: its path has no keys

    const CimValue* FindProperty(std::string_view name) const;
};

/// Finds out the path and the references of a row. The key of a class is known for the source
/// classes; any other class has its references as keys.
RecordedRow MakeRow(std::string className, RowProperties properties);

/// A class definition: no properties, its own name as path.
RecordedRow MakeClassRow(std::string className);

/// What the objects of one answer have in common.
struct RecordedScope {
    std::string server;
    std::string nameSpace;               ///< as the connection spelled it, with backslashes
    std::vector<std::string> selection;  ///< the properties asked for; empty for all
};

}  // namespace qv::service
