#pragma once

#include <string>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/mof/MofError.h"

namespace qv::service {

/// A reference to be checked when every class is known.
struct PendingReference {
    std::string fileName;
    MofPosition position;
    std::string namespacePath;
    std::string className;
    std::string property;
    std::string referenceClass;
    std::string
        overriddenClass;  ///< the class of the overridden reference; empty if it overrides none
};

/// Checks that the class of a reference is defined, and that it is the class of the overridden
/// reference or a subclass of it. A reference of a class that was deleted since is skipped.
/// @throws MofError if the check fails.
void CheckReference(const PendingReference& reference, const ClassRepository& repository);

}  // namespace qv::service
