#pragma once

#include <optional>
#include <string>

#include "qvsata/service/ClassRepository.h"
#include "qvsata/service/MofStatus.h"

namespace qv::service {

/// How a class breaks a rule of the management service.
struct ClassBreach {
    std::string what;
    const MofStatus* status = nullptr;  ///< null where the documentation names none
    std::string property{};             ///< the property concerned; empty: the class
    std::string qualifier{};  ///< the class's qualifier concerned; empty: the class itself
};

/// The first rule that a class breaks, whose superclass is in the repository; the class itself may
/// be there or not. Nothing when it breaks none. docs/MOF-RULES.md lists the rules and their
/// sources.
std::optional<ClassBreach> FindBreach(const ClassDefinition& definition,
                                      const ClassRepository& classes);

}  // namespace qv::service
