#pragma once

#include <string>

#include "qvsata/cim/Object.h"
#include "qvsata/output/Format.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::tool {

/// Formats objects, in UTF-8 with line feeds:
/// - text: one block per object: its relative path and one aligned line per property;
/// - json: a document whose "objects" have "__CLASS", "__RELPATH" and the properties; numbers are
///   numbers, dates are texts, a property without a value is null;
/// - mof: one MOF instance (or class) per object.
std::string FormatObjects(const service::ObjectList& objects, Format format);

/// Writes UTF-8 text to standard output, unchanged, also to a console.
void Print(const std::string& text);

/// Writes readable text to standard output; breaks lines that are longer than its terminal.
void PrintFitted(const view::StyledText& text);

/// Writes readable text to standard error in the same way.
void WriteErrorFitted(const std::string& text);

}  // namespace qv::tool
