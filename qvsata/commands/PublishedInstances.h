#pragma once

#include <span>
#include <string_view>

#include "qvsata/service/Namespace.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::tool {

/// What an object publishes.
view::PublishedObject ReadObject(const service::Object& object);

/// The instances of some classes of a namespace. Raises CommandError when one cannot be enumerated.
view::PublishedHost ReadInstances(const service::Namespace& nameSpace,
                                  std::span<const std::string_view> classes);

}  // namespace qv::tool
