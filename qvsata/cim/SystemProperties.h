#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvsata/cim/Object.h"
#include "qvsata/cim/ResolvedClass.h"

namespace qv::service {

/// What kind of object a system property is asked of: the values of __GENUS.
enum class Genus : std::int64_t { classDefinition = 1, instance = 2 };

/// A system property of an object of a class, by name in any letter case; nothing when there is no
/// such property. Without a relative path the paths are null.
std::optional<ObjectProperty> SystemProperty(std::string_view name, const ResolvedClass& type,
                                             Genus genus,
                                             const std::optional<std::string>& relativePath);

}  // namespace qv::service
