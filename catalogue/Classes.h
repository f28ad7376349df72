#pragma once

#include <span>
#include <string_view>

#include "NativeAPI/NativeAPI.h"

namespace qv {

/// A published class and what builds its instances: one of NativeAPI's operations or, for an
/// association class, NativeAPI::getAssociation with the association's parameters.
struct PublishedClass {
    using Builder = RecordList (NativeAPI::*)(const Request&) const;

    std::string_view name;
    Builder builder;                 ///< null for an association class
    const Association* association;  ///< null for an instance class
};

/// How many of the published classes, the first ones, are instance classes; the others are
/// associations.
inline constexpr std::size_t instanceClassCount = 17;

/// The published classes in the order in which a requested name is compared with theirs.
std::span<const PublishedClass> PublishedClasses();

}  // namespace qv
