#pragma once

#include <string_view>

#include "qvsata/mof/MofParser.h"

namespace qv::service {

/// Checks that a pragma is known and has the arguments that it requires. docs/MOF-RULES.md lists
/// the rules.
/// @throws MofError if it breaks one.
void CheckPragma(const MofPragma& pragma, std::string_view fileName);

}  // namespace qv::service
