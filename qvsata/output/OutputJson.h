#pragma once

#include <string>

#include "nlohmann/json.hpp"
#include "qvsata/cim/Object.h"

namespace qv::tool {

/// The version of all JSON output. It changes when a consumer would have to; docs/JSON.md says when
/// that is.
inline constexpr int jsonFormatVersion = 1;

/// Returns objects as a JSON array: each has "__CLASS", "__RELPATH" and the properties; numbers are
/// numbers, dates are texts, a property without a value is null.
nlohmann::ordered_json ObjectsAsJson(const service::ObjectList& objects);

/// Returns an object in the same form.
nlohmann::ordered_json ObjectAsJson(const service::Object& object);

/// Returns the text of a JSON document that has its format version, then the members of `content`;
/// indented, with a line feed at the end.
std::string DocumentText(const nlohmann::ordered_json& content);

/// Returns the same as one line.
std::string DocumentLine(const nlohmann::ordered_json& content);

}  // namespace qv::tool
