#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "nlohmann/json.hpp"
#include "qvsata/commands/Options.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::tool {

/// An error that ends a command. The message is one line, without the program's name.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The answer of a command that rests on sources that could not be read. Standard error has named
/// them.
class IncompleteAnswer : public std::runtime_error {
public:
    IncompleteAnswer() : std::runtime_error("sources could not be read") {}
};

/// Starts the provider on the machine that the options name and runs a command on it. When the time
/// of the options is over, ends the process with the exit code of an incomplete answer. Otherwise
/// names on standard error each source that could not be read, a line each, and throws
/// IncompleteAnswer if there is one; the command's own CommandError is printed before.
///
/// Throws CommandError, HostFileError, MofError or std::system_error; the messages of the last
/// three name the file.
void RunOnProvider(const Options& options,
                   const std::function<void(const service::ProviderHost&)>& command);

/// The answer of a command that compares: what it compared differs.
class DifferentAnswer : public std::runtime_error {
public:
    DifferentAnswer() : std::runtime_error("there are differences") {}
};

/// A machine on which a command runs.
struct Machine {
    std::string name;  ///< put before each line on it; empty for the only one
    Options options;
};

/// Does the same on each machine in turn: one provider ends before the next starts. The time is
/// that of the first machine's options, for all together. Returns whether every source was read,
/// instead of throwing IncompleteAnswer.
bool RunOnEach(const std::vector<Machine>& machines,
               const std::function<void(const service::ProviderHost&)>& command);

/// Starts the provider that the options name on a recording. Throws what RunOnProvider throws.
std::unique_ptr<service::ProviderHost> StartOn(
    const Options& options, std::shared_ptr<const service::RecordedHost> recorded);

/// Makes `action(host, arguments)` what a command does on the provider that arguments.options name.
template <typename Arguments, typename Action>
void OnProvider(CLI::App& command, std::shared_ptr<Arguments> arguments, Action action) {
    command.callback([arguments = std::move(arguments), action = std::move(action)] {
        RunOnProvider(arguments->options,
                      [&](const service::ProviderHost& host) { action(host, *arguments); });
    });
}

/// Prints a JSON document: the members of `content`, and as `unread` each source that could not be
/// read so far.
void PrintDocument(const service::ProviderHost& host, nlohmann::ordered_json content);

/// Returns the answer's objects; throws CommandError if the answer is a failure.
service::ObjectList Take(service::Answer answer);

/// Prints the answer's objects; "(not readable)" for an empty answer that rests on a source that
/// could not be read. Throws CommandError if the answer is a failure.
void PrintAnswer(const service::ProviderHost& host, service::Answer answer, Format format);

}  // namespace qv::tool
