#pragma once

#include <string>

#include "qvsata/cim/Object.h"
#include "qvsata/output/Format.h"

namespace qv::tool {

/// Formats objects, in UTF-8 with line feeds:
/// - text: one block per object: its relative path and one aligned line per property;
/// - json: an array of objects with "__CLASS", "__RELPATH" and the properties; numbers are numbers,
///   64-bit numbers and dates are texts, a property without a value is null;
/// - mof: one MOF instance (or class) per object.
std::string FormatObjects(const service::ObjectList& objects, Format format);

/// Writes UTF-8 text to standard output, unchanged, also to a console.
void Print(const std::string& text);

}  // namespace qv::tool
