#pragma once

#include <string>

#include "nlohmann/json.hpp"
#include "qvsata/cim/Object.h"

namespace qv::tool {

/// Objects as a JSON array, see FormatObjects.
std::string ObjectsAsJson(const service::ObjectList& objects);

/// An object as one line with a JSON object, see FormatObjects.
std::string ObjectAsJsonLine(const service::Object& object);

/// A JSON document as it is written: indented, with a line feed at the end.
std::string DocumentText(const nlohmann::ordered_json& document);

}  // namespace qv::tool
