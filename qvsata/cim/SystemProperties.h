#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvsata/cim/Object.h"
#include "qvsata/cim/ResolvedClass.h"

namespace qv::service {

/// The kind of object that has a system property: the values of __GENUS.
enum class Genus : std::int64_t { classDefinition = 1, instance = 2 };

/// Returns a system property of an object of the class `type`, by name ignoring case; nothing if no
/// such property exists. Without a relative path the path properties are null.
std::optional<ObjectProperty> SystemProperty(std::string_view name, const ResolvedClass& type,
                                             Genus genus,
                                             const std::optional<std::string>& relativePath);

}  // namespace qv::service
