#pragma once

#include "qvsata/service/Namespace.h"

namespace qv::service {

/// Answers ASSOCIATORS OF: for each instance of an association class with a reference that names
/// the path, the objects that its other references name. Instances are identified by path, ignoring
/// case: of several with one path the first is returned. If the instances of a class cannot be
/// read, the walk ends with that status.
Answer AssociatorsOf(const Namespace& nameSpace, const AssociatorsQuery& query);

/// Answers REFERENCES OF: the instances of association classes with a reference that names the
/// path. They are identified by path, and a failure ends the walk, as in AssociatorsOf.
Answer ReferencesOf(const Namespace& nameSpace, const ReferencesQuery& query);

}  // namespace qv::service
