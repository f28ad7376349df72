#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace qv::tool {

/// The end of one run of the MOF compiler.
struct Compilation {
    std::string whyNotRun;  ///< empty if it ran; the rest is unset otherwise
    unsigned exitCode = 0;
    std::string output = {};  ///< UTF-8, with its error messages
};

/// What an installation changes on a machine. A text that is returned says why the change failed,
/// as the end of an error line; it is empty on success.
class Installer {
public:
    virtual ~Installer() = default;

    /// Returns whether the process has an administrator's rights.
    virtual bool IsElevated() const = 0;

    /// Returns the file that both of the library's classes are registered with. It is empty unless
    /// there is such a file.
    virtual std::filesystem::path RegisteredLibrary() const = 0;

    /// Has a library register or unregister itself. The path is absolute.
    virtual std::string Register(const std::filesystem::path& library) = 0;
    virtual std::string Unregister(const std::filesystem::path& library) = 0;

    /// Runs the system's MOF compiler on a file. The path is absolute.
    virtual Compilation CompileMof(const std::filesystem::path& file) = 0;
};

/// Returns the installer of this machine; null if the machine has no management service. Chosen
/// when the program is linked.
std::unique_ptr<Installer> InstallerOfThisMachine();

}  // namespace qv::tool
