#pragma once

#include <optional>
#include <string>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/mof/MofStatus.h"

namespace qv::service {

/// How an instance breaks a rule of the management service.
struct InstanceBreach {
    std::string what;
    const MofStatus* status = nullptr;  ///< null if the documentation names none
};

/// Returns the first rule that an instance of a class of the repository breaks; nothing if it
/// breaks none. docs/MOF-RULES.md lists the rules.
std::optional<InstanceBreach> FindBreach(const InstanceDefinition& instance,
                                         const ClassRepository& classes);

}  // namespace qv::service
