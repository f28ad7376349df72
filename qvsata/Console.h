#pragma once

#include "qvsata/view/StyledText.h"

namespace qv::tool {

/// Writes to standard output: to a console as its text, coloured unless the environment variable
/// NO_COLOR is set to something; to anything else in UTF-8, byte for byte.
void Print(const view::StyledText& text);

}  // namespace qv::tool
