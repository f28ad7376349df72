#pragma once

#include <string_view>

#include "qvsata/service/MofParser.h"

namespace qv::service {

/// Checks a pragma by itself: that it is known and has the arguments that it needs.
/// docs/MOF-RULES.md lists the rules.
/// @throws MofError when it breaks one.
void CheckPragma(const MofPragma& pragma, std::string_view fileName);

}  // namespace qv::service
