#pragma once

#include <string>

#include "qvsata/cim/Object.h"
#include "qvsata/output/Format.h"

namespace qv::tool {

/// Objects in one of the formats, in UTF-8, with line feeds:
/// - text: a block for each object, its relative path and one line for each property, aligned;
/// - json: an array of objects: "__CLASS", "__RELPATH", the properties; numbers are numbers, 64-bit
///   numbers and dates texts, what has no value is null;
/// - mof: one MOF instance (or class) for each object.
std::string FormatObjects(const service::ObjectList& objects, Format format);

/// Writes to standard output, UTF-8 and byte for byte, also to a console.
void Print(const std::string& text);

}  // namespace qv::tool
