#pragma once

#include <optional>
#include <string>

#include "qvsata/service/ClassRepository.h"
#include "qvsata/service/MofStatus.h"

namespace qv::service {

/// How an instance breaks a rule of the management service.
struct InstanceBreach {
    std::string what;
    const MofStatus* status = nullptr;  ///< null where the documentation names none
};

/// The first rule that an instance of a class of the repository breaks; nothing when it breaks
/// none. docs/MOF-RULES.md lists the rules.
std::optional<InstanceBreach> FindBreach(const InstanceDefinition& instance,
                                         const ClassRepository& classes);

}  // namespace qv::service
