#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/ClassRepository.h"
#include "qvsata/cim/FileBytes.h"
#include "qvsata/mof/MofError.h"

namespace qv::service {

/// A MOF file: its name in messages, and its text in UTF-8.
struct MofSource {
    std::string fileName;
    std::string text;

    bool operator==(const MofSource&) const = default;
};

/// Reads MOF files in order into the namespaces that their `#pragma namespace` lines name; without
/// one, into `root\default`. A superclass must precede its subclasses; the class of a reference may
/// follow, in the same file or in a later one. An alias is valid in its own file. Methods and
/// qualifier declarations are accepted and not stored.
/// @throws MofError on the first error; the namespaces are then unchanged.
void ReadMof(std::span<const MofSource> files, Namespaces& namespaces);

/// Reads one file in the same way.
void ReadMof(std::string_view text, std::string_view fileName, Namespaces& namespaces);

/// Reads files from disk; messages name them by their paths.
/// @throws MofError if a file cannot be read or has more than `mostBytes`: `file: reason`.
std::vector<MofSource> LoadMofFiles(std::span<const std::string> paths,
                                    std::uintmax_t mostBytes = noFileLimit);

/// Loads files and reads them in the same way.
void ReadMofFiles(std::span<const std::string> paths, Namespaces& namespaces);

}  // namespace qv::service
