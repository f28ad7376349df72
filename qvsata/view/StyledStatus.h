#pragma once

#include "qvsata/view/StyledText.h"
#include "qvsata/view/Topology.h"

namespace qv::view {

/// How a status is shown: good when it is OK, bad for an error, a caution for all else.
Style StyleOf(const Health& status);

/// The word of a status in its style, behind a "!" when it is not OK.
Span StatusSpan(const Health& status);

}  // namespace qv::view
