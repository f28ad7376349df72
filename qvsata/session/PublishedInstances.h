#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/service/Namespace.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::tool {

/// Reads an object into the form that the views use.
view::PublishedObject ReadObject(const service::Object& object);

/// The same with some of its properties only, and without references.
view::PublishedObject ReadObject(const service::Object& object,
                                 std::span<const std::string_view> properties);

/// Returns the names of all classes that the provider publishes, in its order.
std::vector<std::string_view> AllPublishedClasses();

/// Returns the instances of the given classes. Throws CommandError if one cannot be enumerated.
view::PublishedHost ReadInstances(const service::Namespace& nameSpace,
                                  std::span<const std::string_view> classes);

/// The same, but lacks the classes that cannot be enumerated.
/// @param fail called with a line on each of them
view::PublishedHost ReadInstances(const service::Namespace& nameSpace,
                                  std::span<const std::string_view> classes,
                                  const std::function<void(const std::string&)>& fail);

}  // namespace qv::tool
