#pragma once

#include <string>

#include "qvsata/service/ClassRepository.h"
#include "qvsata/service/MofError.h"

namespace qv::service {

/// A reference, to be looked at when every class is known.
struct PendingReference {
    std::string fileName;
    MofPosition position;
    std::string namespacePath;
    std::string className;
    std::string property;
    std::string referenceClass;
    std::string overriddenClass;  ///< what the overridden reference points to; empty without one
};

/// Checks that the class of a reference is defined and no wider than that of the reference it
/// overrides. A reference of a class that was deleted meanwhile is left out.
/// @throws MofError when it is not.
void CheckReference(const PendingReference& reference, const ClassRepository& repository);

}  // namespace qv::service
