#pragma once

#include <string>

#include "qvsata/service/Namespace.h"

namespace qv::tool {

/// An object path taken apart, once its object is found to exist; keys in any order and letter
/// case. Raises CommandError when the text is no path of an object or there is no such object.
service::ObjectPath ExistingObject(const service::Namespace& nameSpace, const std::string& path);

/// Raises CommandError when the namespace has no such class; an empty name asks for none.
void RequireClass(const service::Namespace& nameSpace, const std::string& className);

}  // namespace qv::tool
