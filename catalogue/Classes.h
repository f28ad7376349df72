#pragma once

#include <span>
#include <string_view>

#include "NativeAPI/NativeAPI.h"

namespace qv {

/// A published class and the operation that builds its instances: one of NativeAPI's builders or,
/// for an association class, NativeAPI::getAssociation with the association.
struct PublishedClass {
    using Builder = RecordList (NativeAPI::*)(const Request&) const;

    std::string_view name;
    Builder builder;                 ///< null for an association class
    const Association* association;  ///< null for an instance class
};

/// The number of instance classes. They come first in the list; the others are associations.
inline constexpr std::size_t instanceClassCount = 17;

/// Returns the published classes. A requested name is compared in this order.
std::span<const PublishedClass> PublishedClasses();

}  // namespace qv
