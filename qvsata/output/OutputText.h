#pragma once

#include <string>
#include <vector>

#include "qvsata/cim/Object.h"

namespace qv::tool {

/// Returns objects as readable text, see FormatObjects; "(none)" if there are no objects.
std::string ObjectsAsText(const service::ObjectList& objects);

/// A table with a heading. Its columns are aligned, numbers to the right.
struct Table {
    std::vector<std::string> heading;
    std::vector<std::vector<std::string>> rows;  ///< each as long as the heading
};

std::string TableAsText(const Table& table);

}  // namespace qv::tool
