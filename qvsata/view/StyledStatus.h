#pragma once

#include "qvsata/view/Health.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Returns the style of a status: good for OK, bad for an error, caution for anything else.
Style StyleOf(const Health& status);

/// Returns the word of a status in its style, prefixed with "!" if it is not OK.
Span StatusSpan(const Health& status);

}  // namespace qv::view
