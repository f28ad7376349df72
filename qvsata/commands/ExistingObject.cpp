#include "qvsata/commands/ExistingObject.h"

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/commands/Session.h"

namespace qv::tool {

service::ObjectPath ExistingObject(const service::Namespace& nameSpace, const std::string& path) {
    // Throws for a text that is not a path or names nothing.
    Take(nameSpace.GetInAnyOrder(path));
    service::ObjectPath parsed = service::ParseObjectPath(path).value();
    if (parsed.keys.empty() && !parsed.singleton) {
        throw CommandError("'" + path + "' is a class; give the path of an object");
    }
    return parsed;
}

void RequireClass(const service::Namespace& nameSpace, const std::string& className) {
    if (!className.empty() && !nameSpace.Classes().Find(className)) {
        throw CommandError("unknown class '" + className + "'");
    }
}

}  // namespace qv::tool
