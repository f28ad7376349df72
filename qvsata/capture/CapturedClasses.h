#pragma once

#include <span>
#include <string_view>

namespace qv::capture {

/// A class whose rows a recording holds.
struct CapturedClass {
    std::string_view nameSpace;
    std::string_view name;
};

/// Returns the classes that the provider reads, including the ends of the associations that it
/// follows, in the order of a recording.
std::span<const CapturedClass> CapturedClasses();

}  // namespace qv::capture
