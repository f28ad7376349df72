#pragma once

#include <memory>
#include <string>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/service/Namespace.h"

namespace qv::service {

/// The classes of the provider's namespace, resolved once for all servers, and the repository that
/// also has the instances of the MOF files.
struct PublishedClasses {
    explicit PublishedClasses(ClassRepository definitions);

    ClassRepository repository;
    NamespaceClasses resolved;  ///< on no server
};

/// Returns the provider's namespace on a server, with the classes and instances of its MOF files.
/// The provider is attached later.
std::shared_ptr<Namespace> OpenPublished(const PublishedClasses& published,
                                         const std::string& server);

/// Returns a connector that connects to the provider's namespace as `own` and to all others through
/// `machine`.
Connector WithPublished(std::shared_ptr<const Namespace> own, Connector machine);

}  // namespace qv::service
