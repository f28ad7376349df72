#pragma once

#include <windows.h>

#include "qvsata/view/StyledText.h"

namespace qv::tool {

/// The console that one of the standard handles (STD_OUTPUT_HANDLE, STD_ERROR_HANDLE) leads to;
/// null when it leads elsewhere.
HANDLE ConsoleOf(DWORD standardHandle);

/// Writes to standard output: to a console as its text, coloured unless the environment variable
/// NO_COLOR is set to something; to anything else in UTF-8, byte for byte.
void Print(const view::StyledText& text);

}  // namespace qv::tool
