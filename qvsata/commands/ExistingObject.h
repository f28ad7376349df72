#pragma once

#include <string>

#include "qvsata/service/Namespace.h"

namespace qv::tool {

/// Parses an object path and checks that its object exists; keys in any order and letter case.
/// Throws CommandError if the text is not the path of an instance or the object does not exist.
service::ObjectPath ExistingObject(const service::Namespace& nameSpace, const std::string& path);

/// Throws CommandError if the namespace lacks the class; an empty name passes.
void RequireClass(const service::Namespace& nameSpace, const std::string& className);

}  // namespace qv::tool
