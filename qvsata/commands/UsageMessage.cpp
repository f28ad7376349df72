#include "qvsata/commands/UsageMessage.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

namespace qv::tool {
namespace {

/// Returns the number of letters to insert, drop, replace or swap with the next one that make one
/// text of another.
std::size_t Distance(std::string_view one, std::string_view other) {
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last(other.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t row = 1; row <= one.size(); ++row) {
        std::vector<std::size_t> current(other.size() + 1, row);
        for (std::size_t column = 1; column <= other.size(); ++column) {
            const bool isSame = one[row - 1] == other[column - 1];
            current[column] = std::min(
                {last[column] + 1, current[column - 1] + 1, last[column - 1] + (isSame ? 0U : 1U)});
            if (row > 1 && column > 1 && one[row - 1] == other[column - 2] &&
                one[row - 2] == other[column - 1]) {
                current[column] = std::min(current[column], beforeLast[column - 2] + 1);
            }
        }
        beforeLast = std::exchange(last, current);
    }
    return last.back();
}

/// Returns the known name that a typed one begins, or that is two typing errors away at most; empty
/// if there is none.
std::string Meant(const std::string& typed, const std::vector<std::string>& known) {
    constexpr std::size_t mostErrors = 2;
    const auto begun = std::ranges::find_if(
        known, [&typed](const std::string& name) { return name.starts_with(typed); });
    if (begun != known.end()) {
        return *begun;
    }
    const auto closest = std::ranges::min_element(
        known, {}, [&typed](const std::string& name) { return Distance(typed, name); });
    return closest != known.end() && Distance(typed, *closest) <= mostErrors ? *closest : "";
}

std::vector<std::string> CommandsOf(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(command->get_name());
    }
    return names;
}

std::vector<std::string> OptionsOf(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options()) {
        if (!option->get_positional()) {
            names.push_back(option->get_name());
        }
    }
    return names;
}

}  // namespace

std::string UsageMessage(const CLI::App& program, const CLI::ParseError& error) {
    const std::vector<std::string> unknown = program.remaining(true);
    const std::vector<CLI::App*> chosen = program.get_subcommands();
    if (unknown.empty()) {
        return chosen.empty() ? "a command is required" : error.what();
    }
    const CLI::App& command = chosen.empty() ? program : *chosen.front();
    const std::string typed = unknown.front().substr(0, unknown.front().find('='));
    const bool isOption = typed.starts_with('-');
    if (!isOption && !chosen.empty()) {
        return "unexpected argument '" + unknown.front() + "' of " + command.get_name() +
               (typed.ends_with(".json") ? "; each recording takes its own --host" : "");
    }
    const std::string meant = Meant(typed, isOption ? OptionsOf(command) : CommandsOf(program));
    if (chosen.empty() && isOption && meant.empty()) {
        return "a command is required before '" + typed + "'";
    }
    return std::string("unknown ") + (isOption ? "option" : "command") + " '" + typed + "'" +
           (meant.empty() ? "" : "; did you mean '" + meant + "'?");
}

}  // namespace qv::tool
