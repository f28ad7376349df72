#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "qvsata/registration/Installer.h"

namespace qv::tool {

/// The files of an installation, which stay where they are. Paths are absolute.
struct ProductFiles {
    std::filesystem::path library;
    std::filesystem::path mofFolder;
};

/// Installs the provider: registers the library with COM, compiles the class definitions and the
/// registration of the providers, in this order. If a step fails, the steps before it are undone,
/// last first: a registration that worked before stays, with the new class definitions; otherwise
/// nothing is left but superclasses and the namespace, which other software may use. Returns what
/// failed, a line each: the step, then what could not be undone; nothing on success.
std::vector<std::string> Register(Installer& installer, const ProductFiles& files);

/// Removes what Register installed, except superclasses and the namespace. Changes nothing if
/// another library is registered. A step that fails does not stop the others: without the library
/// its classes are removed all the same. Returns what failed, a line each; nothing if nothing was
/// installed.
std::vector<std::string> Unregister(Installer& installer, const ProductFiles& files);

}  // namespace qv::tool
