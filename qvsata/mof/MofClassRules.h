#pragma once

#include <cstddef>
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

/// The greatest number of properties of a class, with inherited ones.
inline constexpr std::size_t mostProperties = 1024;

/// Returns the breach of that rule.
ClassBreach TooManyProperties(const std::string& className);

/// Returns the first rule that a class breaks; nothing if it breaks none. Its superclass must be in
/// the repository; the class itself may be. docs/MOF-RULES.md lists the rules and their sources.
std::optional<ClassBreach> FindBreach(const ClassDefinition& definition,
                                      const ClassRepository& classes);

}  // namespace qv::service
