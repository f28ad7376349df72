#pragma once

#include "qvsata/service/com/EmbeddedNamespace.h"

namespace qv::service {

/// Answers ASSOCIATORS OF: for each instance of an association class in which a reference names the
/// path, the objects that its other references name, each once.
Answer AssociatorsOf(const EmbeddedNamespace& nameSpace, const AssociatorsQuery& query);

/// Answers REFERENCES OF: the instances of association classes in which a reference names the path.
Answer ReferencesOf(const EmbeddedNamespace& nameSpace, const ReferencesQuery& query);

}  // namespace qv::service
