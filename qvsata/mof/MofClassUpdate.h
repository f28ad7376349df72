#pragma once

#include <optional>

#include "qvsata/mof/MofClassRules.h"

namespace qv::service {

/// How classes that may already exist are written: `#pragma classflags`. Without a flag a class is
/// created, or changed if neither subclasses nor instances use it.
struct ClassFlags {
    bool createOnly = false;
    bool updateOnly = false;
    /// safeupdate: a class with subclasses may be changed if they still keep the rules. forceupdate
    /// is treated the same: a conflict with a subclass is refused, not resolved.
    bool withSubclasses = false;
};

/// Returns why the existing class of that name must not become `changed`; nothing if it may. A
/// declaration that differs only in descriptive qualifiers is always allowed.
std::optional<ClassBreach> FindUpdateBreach(const ClassDefinition& changed,
                                            const ClassRepository& classes,
                                            const ClassFlags& flags);

}  // namespace qv::service
