#include "qvsata/registration/MofCompiler.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "qvsata/cim/StatusCodes.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

struct ExitCode {
    unsigned code;
    std::string_view meaning;
};

/// As the compiler's page documents them.
constexpr std::array exitCodes{
    ExitCode{1, " (refused by the management service)"},
    ExitCode{2, " (wrong switch)"},
    ExitCode{3, " (wrong syntax)"},
};

std::string_view MeaningOf(unsigned code) {
    const auto* const found = std::ranges::find(exitCodes, code, &ExitCode::code);
    return found == exitCodes.end() ? "" : found->meaning;
}

std::string_view LastLine(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t last = text.find_last_not_of(blanks);
    if (last == std::string_view::npos) {
        return {};
    }
    text = text.substr(0, last + 1);
    const std::size_t before = text.find_last_of("\r\n");
    return before == std::string_view::npos ? text : text.substr(before + 1);
}

}  // namespace

std::vector<Status> StatusesIn(const Compilation& compilation) {
    constexpr std::size_t length = 10;
    // The compiler writes "0x" and "0X".
    const std::string output = FoldCase(compilation.output);
    std::vector<Status> statuses;
    for (std::size_t at = output.find("0x"); at != std::string::npos;
         at = output.find("0x", at + 1)) {
        if (const auto status = service::StatusOfName(output.substr(at, length))) {
            statuses.push_back(*status);
        }
    }
    // For what a switch forbids, the exit code is the service's own.
    if (const Status code{compilation.exitCode}; !Succeeded(code)) {
        statuses.push_back(code);
    }
    return statuses;
}

std::string WhyNotCompiled(const Compilation& compilation, std::optional<Status> accepted) {
    if (!compilation.whyNotRun.empty() || compilation.exitCode == 0) {
        return compilation.whyNotRun;
    }
    const std::vector<Status> statuses = StatusesIn(compilation);
    if (accepted && std::ranges::count(statuses, *accepted) != 0) {
        return {};
    }
    std::string why = "mofcomp.exe ended with " + std::to_string(compilation.exitCode);
    why += MeaningOf(compilation.exitCode);
    if (!statuses.empty()) {
        why += ", " + service::StatusName(statuses.back());
    }
    if (const std::string_view line = LastLine(compilation.output); !line.empty()) {
        why.append(": ").append(line);
    }
    return why;
}

}  // namespace qv::tool
