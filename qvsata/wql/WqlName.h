#pragma once

#include <cstddef>
#include <string>

namespace qv::service {

/// A name in a query and its place.
struct WqlName {
    std::string text;
    std::size_t column = 1;  ///< of its first byte
};

}  // namespace qv::service
