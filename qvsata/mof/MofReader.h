#pragma once

#include <span>
#include <string>
#include <string_view>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/mof/MofError.h"

namespace qv::service {

/// A MOF file: the name that messages give it, and its text in UTF-8.
struct MofSource {
    std::string fileName;
    std::string text;
};

/// Reads MOF files in order into the namespaces that their `#pragma namespace` lines name, and
/// `root\default` where a file names none. A superclass must stand before its subclasses; the class
/// of a reference may follow, in the same file or in a later one. An alias counts in its own file.
/// Methods and qualifier declarations are accepted and not kept.
/// @throws MofError on the first error; the namespaces are then as they were.
void ReadMof(std::span<const MofSource> files, Namespaces& namespaces);

/// The same for one file.
void ReadMof(std::string_view text, std::string_view fileName, Namespaces& namespaces);

/// The same for files on disk, whose paths are the names in messages.
/// @throws MofError also when a file cannot be read: `file:1:1: cannot be read`.
void ReadMofFiles(std::span<const std::string> paths, Namespaces& namespaces);

}  // namespace qv::service
