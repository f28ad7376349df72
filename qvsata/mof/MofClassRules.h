#pragma once

#include <optional>
#include <string>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/mof/MofStatus.h"

namespace qv::service {

/// How a class breaks a rule of the management service.
struct ClassBreach {
    std::string what;
    const MofStatus* status = nullptr;  ///< null if the documentation names none
    std::string property{};             ///< the property at fault; empty: the class
    std::string qualifier{};            ///< the class's qualifier at fault; empty: the class itself
};

/// Returns the first rule that a class breaks; nothing if it breaks none. Its superclass must be in
/// the repository; the class itself may be. docs/MOF-RULES.md lists the rules and their sources.
std::optional<ClassBreach> FindBreach(const ClassDefinition& definition,
                                      const ClassRepository& classes);

}  // namespace qv::service
