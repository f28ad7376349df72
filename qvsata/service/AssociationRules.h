#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/service/Namespace.h"

namespace qv::service {

/// Returns the answer that refuses a query which a namespace cannot answer, with a message that
/// names the cause; nothing if it can. Refused are: a path into another namespace or of an unknown
/// class (`notFound`), a class path without SchemaOnly or an instance path with it, an unknown
/// class
/// (`invalidClass`), and a role that no association class has. The status is `invalidQuery` where
/// none is given. Nothing is unknown in a namespace whose classes are known by name only, except
/// an association class.
std::optional<Answer> RefusalOf(const Namespace& nameSpace, const AssociatorsQuery& query);
std::optional<Answer> RefusalOf(const Namespace& nameSpace, const ReferencesQuery& query);

/// Returns whether an optional name of a query allows `name`.
bool Allows(const std::string& asked, std::string_view name);

/// Returns the classes that an optional class of a query allows: it and its subclasses.
std::vector<ResolvedClassPtr> ClassesAllowedBy(const std::string& asked,
                                               const NamespaceClasses& classes);

/// Returns whether a class has the qualifier that a query requires, if any; `type` may be null.
bool HasRequired(const std::string& qualifier, const ResolvedClassPtr& type);

}  // namespace qv::service
