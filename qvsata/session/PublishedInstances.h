#pragma once

#include <span>
#include <string_view>

#include "qvsata/service/Namespace.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::tool {

/// Reads an object into the form that the views use.
view::PublishedObject ReadObject(const service::Object& object);

/// The same with some of its properties only, and without references.
view::PublishedObject ReadObject(const service::Object& object,
                                 std::span<const std::string_view> properties);

/// Returns the instances of the given classes. Throws CommandError if one cannot be enumerated.
view::PublishedHost ReadInstances(const service::Namespace& nameSpace,
                                  std::span<const std::string_view> classes);

}  // namespace qv::tool
