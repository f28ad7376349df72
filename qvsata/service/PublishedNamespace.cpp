#include "qvsata/service/PublishedNamespace.h"

#include <utility>

#include "qvsata/service/StatedInstances.h"
#include "source/Namespaces.h"

namespace qv::service {

std::shared_ptr<Namespace> OpenPublished(const ClassRepository& repository,
                                         const std::string& server) {
    NamespaceClasses classes(repository, server, providerNamespace);
    auto stated = std::make_shared<const StatedInstances>(repository, classes);
    return std::make_shared<Namespace>(std::string(providerNamespace), std::move(classes),
                                       Namespace::Sources{std::move(stated)});
}

Connector WithPublished(std::shared_ptr<const Namespace> own, Connector machine) {
    return [own = std::move(own),
            machine = std::move(machine)](std::string_view nameSpace) -> Connection {
        return IsSameNamespace(nameSpace, own->Name()) ? Connection{Status::noError, own}
                                                       : machine(nameSpace);
    };
}

}  // namespace qv::service
