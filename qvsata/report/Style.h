#pragma once

#include <string_view>

namespace qv::report {

/// The style sheet of a page: style.css.
extern const std::string_view style;

}  // namespace qv::report
