#include "qvsata/service/PublishedNamespace.h"

#include <utility>

#include "qvsata/service/StatedInstances.h"
#include "source/Namespaces.h"

namespace qv::service {

PublishedClasses::PublishedClasses(ClassRepository definitions)
    : repository(std::move(definitions)), resolved(repository, {}, providerNamespace) {}

std::shared_ptr<Namespace> OpenPublished(const PublishedClasses& published,
                                         const std::string& server) {
    NamespaceClasses classes(published.resolved, server);
    auto stated = std::make_shared<const StatedInstances>(published.repository, classes);
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
