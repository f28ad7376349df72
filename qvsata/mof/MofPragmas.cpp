#include "qvsata/mof/MofPragmas.h"

#include <algorithm>
#include <array>

#include "source/Text.h"

namespace qv::service {
namespace {

using Arguments = std::vector<std::string>;

bool IsOneOf(std::string_view text, std::initializer_list<std::string_view> words) {
    return std::ranges::any_of(
        words, [text](std::string_view word) { return EqualsIgnoringCase(text, word); });
}

[[noreturn]] void Fail(const MofPragma& pragma, std::string_view fileName, const std::string& what,
                       const MofStatus& status) {
    throw MofError(fileName, pragma.position, "pragma " + pragma.name + ' ' + what, status);
}

void CheckAutorecover(const MofPragma& pragma, std::string_view fileName) {
    if (pragma.position.line != 1) {
        throw MofError(fileName, pragma.position,
                       "pragma autorecover belongs on the first line of the file");
    }
}

/// Returns the server of `\\server\root\...`; empty for a path without one.
std::string_view ServerOf(std::string_view path) {
    if (!path.starts_with("\\\\") && !path.starts_with("//")) {
        return {};
    }
    path.remove_prefix(2);
    return path.substr(0, path.find_first_of("\\/"));
}

void CheckNamespace(const MofPragma& pragma, std::string_view fileName) {
    if (pragma.arguments.size() != 1 || pragma.arguments.front().empty()) {
        Fail(pragma, fileName, "needs the path of a namespace", mof_status::invalidNamespaceSyntax);
    }
    const std::string_view server = ServerOf(pragma.arguments.front());
    if (!server.empty() && server != ".") {
        Fail(pragma, fileName, "names another server", mof_status::invalidNamespace);
    }
}

void CheckDelete(const MofPragma& pragma, std::string_view fileName, const MofStatus& status) {
    if (pragma.arguments.size() != 2 || !IsOneOf(pragma.arguments[1], {"fail", "nofail"})) {
        Fail(pragma, fileName, "needs a name and FAIL or NOFAIL", status);
    }
}

void CheckDeleteClass(const MofPragma& pragma, std::string_view fileName) {
    CheckDelete(pragma, fileName, mof_status::invalidDeleteClass);
}

void CheckDeleteInstance(const MofPragma& pragma, std::string_view fileName) {
    CheckDelete(pragma, fileName, mof_status::invalidDeleteInstance);
}

void CheckFlags(const MofPragma& pragma, std::string_view fileName,
                std::initializer_list<std::string_view> known) {
    const bool areKnown = std::ranges::all_of(
        pragma.arguments, [known](const std::string& flag) { return IsOneOf(flag, known); });
    if (pragma.arguments.empty() || !areKnown) {
        Fail(pragma, fileName, "has an unknown flag or none", mof_status::invalidFlags);
    }
}

void CheckClassFlags(const MofPragma& pragma, std::string_view fileName) {
    CheckFlags(pragma, fileName, {"createonly", "updateonly", "safeupdate", "forceupdate"});
}

void CheckInstanceFlags(const MofPragma& pragma, std::string_view fileName) {
    CheckFlags(pragma, fileName, {"createonly", "updateonly"});
}

void CheckNothing(const MofPragma&, std::string_view) {}

struct Known {
    std::string_view name;
    void (*check)(const MofPragma&, std::string_view);
};

constexpr std::array known{
    Known{"amendment", CheckNothing},
    Known{"autorecover", CheckAutorecover},
    Known{"classflags", CheckClassFlags},
    Known{"deleteclass", CheckDeleteClass},
    Known{"deleteinstance", CheckDeleteInstance},
    Known{"instanceflags", CheckInstanceFlags},
    Known{"instancelocale", CheckNothing},
    Known{"locale", CheckNothing},
    Known{"namespace", CheckNamespace},
};

}  // namespace

void CheckPragma(const MofPragma& pragma, std::string_view fileName) {
    const auto found = std::ranges::find_if(
        known, [&pragma](const Known& one) { return EqualsIgnoringCase(one.name, pragma.name); });
    if (found == known.end()) {
        throw MofError(fileName, pragma.position, "unknown pragma " + pragma.name,
                       mof_status::invalidPragma);
    }
    found->check(pragma, fileName);
}

}  // namespace qv::service
