#include "qvsata/service/MofReferences.h"

namespace qv::service {

void CheckReference(const PendingReference& reference, const ClassRepository& repository) {
    if (repository.Find(reference.className) == nullptr) {
        return;
    }
    if (repository.Find(reference.referenceClass) == nullptr) {
        throw MofError(reference.fileName, reference.position,
                       "class " + reference.referenceClass + " of the reference " +
                           reference.property + " is not defined");
    }
    if (!reference.overriddenClass.empty() &&
        !repository.IsA(reference.referenceClass, reference.overriddenClass)) {
        throw MofError(reference.fileName, reference.position,
                       "class " + reference.referenceClass + " of the reference " +
                           reference.property + " is no " + reference.overriddenClass);
    }
}

}  // namespace qv::service
