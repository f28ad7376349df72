#pragma once

#include <string>

#include "qvsata/view/text/StyledText.h"

namespace qv::tool {

/// Writes UTF-8 text to standard output, unchanged, also to a console.
void Print(const std::string& text);

/// Writes readable text to standard output; breaks lines that are longer than its terminal.
void PrintFitted(const view::StyledText& text);

/// Writes lines to standard error in the same way, with printable characters only (see
/// view::Printable) and the middle of a very long line left out. Only the caller knows which line
/// feeds are those of a device's text.
void WriteErrorFitted(const std::string& text);

}  // namespace qv::tool
