#include "qvsata/registration/Registration.h"

#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/mof/ShippedMof.h"
#include "qvsata/registration/MofCompiler.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

using std::filesystem::path;

/// A step of an installation.
struct Step {
    std::string name;  ///< in an error line
    std::function<std::string()> run;
    std::function<std::string()> undo = {};  ///< null: nothing is undone
    bool leavesParts = false;                ///< if it fails: it is undone then, too
};

/// Undoes steps, last first. Adds a line for each that cannot be undone.
void Undo(std::span<const Step> steps, std::vector<std::string>& lines) {
    for (; !steps.empty(); steps = steps.first(steps.size() - 1)) {
        const Step& step = steps.back();
        if (const std::string why = step.undo ? step.undo() : ""; !why.empty()) {
            lines.push_back("undoing " + step.name + ": " + why);
        }
    }
}

std::vector<std::string> RunOrUndo(std::span<const Step> steps) {
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const Step& step = steps[index];
        if (const std::string why = step.run(); !why.empty()) {
            std::vector<std::string> lines{step.name + ": " + why};
            Undo(steps.first(index + (step.leavesParts ? 1 : 0)), lines);
            return lines;
        }
    }
    return {};
}

Step CompileStep(Installer& installer, const path& file,
                 std::optional<Status> accepted = std::nullopt) {
    return {"compiling " + service::Utf8OfPath(file), [&installer, file, accepted] {
                return WhyNotCompiled(installer.CompileMof(file), accepted);
            }};
}

Step RemovalStep(Installer& installer, const ProductFiles& files) {
    // Without the namespace nothing is to be removed.
    return CompileStep(installer, files.mofFolder / service::shippedRemovalFile,
                       service::status::invalidNamespace);
}

Step LibraryStep(Installer& installer, const path& library, const path& before) {
    const auto undo = [&installer, library, before] {
        return before.empty() ? installer.Unregister(library) : installer.Register(before);
    };
    return {"registering " + service::Utf8OfPath(library),
            [&installer, library] { return installer.Register(library); }, undo};
}

/// The order matters: each file builds on those before it, and the last one names the library's
/// classes.
std::vector<Step> InstallationSteps(Installer& installer, const ProductFiles& files) {
    const path before = installer.RegisteredLibrary();
    std::vector<Step> steps{LibraryStep(installer, files.library, before)};
    const std::span classFiles(service::shippedClassFiles);
    for (const std::string_view superclasses : classFiles.first(classFiles.size() - 1)) {
        // These change no class that other software brought.
        steps.push_back(
            CompileStep(installer, files.mofFolder / superclasses, service::status::alreadyExists));
    }
    Step classes = CompileStep(installer, files.mofFolder / classFiles.back());
    if (before.empty()) {
        classes.undo = RemovalStep(installer, files).run;
        classes.leavesParts = true;
    }
    steps.push_back(classes);
    steps.push_back(CompileStep(installer, files.mofFolder / service::shippedRegistrationFile));
    return steps;
}

/// Returns an error line for what cannot work, before anything is changed.
std::vector<std::string> Obstacles(const Installer& installer, const std::vector<path>& files) {
    if (!installer.IsElevated()) {
        return {"only an administrator can do this: start it from an elevated command prompt"};
    }
    std::vector<std::string> lines;
    for (const path& file : files) {
        if (!std::filesystem::exists(file)) {
            lines.push_back(service::Utf8OfPath(file) + ": not found");
        }
    }
    return lines;
}

/// Paths on Windows ignore case. A registered file may be gone.
bool IsSameFile(const path& one, const path& other) {
    std::error_code ignored;
    return std::filesystem::equivalent(one, other, ignored) ||
           EqualsIgnoringCase(service::Utf8OfPath(one.lexically_normal()),
                              service::Utf8OfPath(other.lexically_normal()));
}

std::vector<path> InstalledFiles(const ProductFiles& files) {
    std::vector<path> all{files.library};
    for (const std::string_view name : service::shippedClassFiles) {
        all.push_back(files.mofFolder / name);
    }
    all.push_back(files.mofFolder / service::shippedRegistrationFile);
    all.push_back(files.mofFolder / service::shippedRemovalFile);
    return all;
}

}  // namespace

std::vector<std::string> Register(Installer& installer, const ProductFiles& files) {
    std::vector<std::string> obstacles = Obstacles(installer, InstalledFiles(files));
    return obstacles.empty() ? RunOrUndo(InstallationSteps(installer, files)) : obstacles;
}

std::vector<std::string> Unregister(Installer& installer, const ProductFiles& files) {
    const Step removal = RemovalStep(installer, files);
    std::vector<std::string> lines =
        Obstacles(installer, {files.mofFolder / service::shippedRemovalFile});
    const path registered = installer.RegisteredLibrary();
    if (lines.empty() && !registered.empty() && !IsSameFile(registered, files.library)) {
        lines.push_back("another library is registered: " + service::Utf8OfPath(registered) +
                        "; remove it with its own program, or register this one first");
    }
    if (!lines.empty()) {
        return lines;
    }
    if (const std::string why = removal.run(); !why.empty()) {
        lines.push_back(removal.name + ": " + why);
    }
    if (const std::string why = installer.Unregister(files.library); !why.empty()) {
        lines.push_back("unregistering " + service::Utf8OfPath(files.library) + ": " + why);
    }
    return lines;
}

}  // namespace qv::tool
