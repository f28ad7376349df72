#pragma once

#include <string>

#include "nlohmann/json.hpp"
#include "qvsata/cim/Object.h"

namespace qv::tool {

/// Returns objects as a JSON array; see FormatObjects.
std::string ObjectsAsJson(const service::ObjectList& objects);

/// Returns an object as one line with a JSON object; see FormatObjects.
std::string ObjectAsJsonLine(const service::Object& object);

/// Returns the text of a JSON document, indented and with a line feed at the end.
std::string DocumentText(const nlohmann::ordered_json& document);

}  // namespace qv::tool
