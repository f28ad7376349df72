#pragma once

#include "qvsata/service/Namespace.h"

namespace qv::service {

// Queries with SchemaOnly: what the definitions say, without any instance. A reference to a class
// also names its subclasses. Each class is returned once.

/// Returns the classes to which an association may join an instance of the path's class: those that
/// the other references of the association class name.
Answer SchemaAssociators(const Namespace& nameSpace, const AssociatorsQuery& query);

/// Returns the association classes with a reference to the path's class.
Answer SchemaReferences(const Namespace& nameSpace, const ReferencesQuery& query);

}  // namespace qv::service
