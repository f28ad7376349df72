#pragma once

#include <optional>

#include "qvsata/service/MofClassRules.h"

namespace qv::service {

/// How classes are written that may be in the namespace already: `#pragma classflags`. Without a
/// flag a class is created, or changed when neither subclasses nor instances use it.
struct ClassFlags {
    bool createOnly = false;
    bool updateOnly = false;
    /// Subclasses may use a class that is changed, as long as they still keep the rules:
    /// safeupdate. forceupdate is taken for the same: a conflict with a subclass is refused, not
    /// resolved.
    bool withSubclasses = false;
};

/// Why the class of that name may not become what `changed` says; nothing when it may. A class may
/// always be stated once more, with other texts.
std::optional<ClassBreach> FindUpdateBreach(const ClassDefinition& changed,
                                            const ClassRepository& classes,
                                            const ClassFlags& flags);

}  // namespace qv::service
