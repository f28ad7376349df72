#pragma once

#include "qvsata/service/Namespace.h"

namespace qv::service {

/// Answers ASSOCIATORS OF: for each instance of an association class in which a reference names the
/// path, the objects that its other references name. Instances are told by their paths, without
/// regard to case: of several with one path the first stands for all. The first class whose
/// instances cannot be had ends the walk with its status.
Answer AssociatorsOf(const Namespace& nameSpace, const AssociatorsQuery& query);

/// Answers REFERENCES OF: the instances of association classes in which a reference names the path,
/// told by their paths and failing in the same way.
Answer ReferencesOf(const Namespace& nameSpace, const ReferencesQuery& query);

}  // namespace qv::service
