#pragma once

#include <memory>
#include <string>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/service/Namespace.h"

namespace qv::service {

/// Returns the provider's namespace on a server: the classes and the instances that its MOF files
/// state. The provider is attached when it is there.
std::shared_ptr<Namespace> OpenPublished(const ClassRepository& repository,
                                         const std::string& server);

/// Connects to the provider's namespace as `own` and to all others as `machine` does.
Connector WithPublished(std::shared_ptr<const Namespace> own, Connector machine);

}  // namespace qv::service
