#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>

#include "qvsata/service/ProviderHost.h"
#include "qvsata/session/Deadline.h"
#include "qvsata/session/Options.h"

namespace qv::tool {

/// An error that ends a command. The message is one line, without the program's name.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Ends a command with an exit code (see ExitCodes.h). What is to be said has been printed.
class CommandEnd : public std::runtime_error {
public:
    explicit CommandEnd(int exitCode)
        : std::runtime_error("exit code " + std::to_string(exitCode)), exitCode_(exitCode) {}

    int ExitCode() const { return exitCode_; }

private:
    int exitCode_;
};

/// A machine on which a command runs.
struct Machine {
    std::string name;  ///< put before each line on it; empty for the only one
    Options options;
};

/// One run of a command: starts the provider on one machine after the other. When the time of the
/// options is over, which is for all machines together, it ends the process: with the exit code of
/// an incomplete answer, or as the command reports failures.
class MachineRun {
public:
    explicit MachineRun(const Options& options);

    /// Runs a command on a machine, and names on standard error each source that could not be read,
    /// a line each, unless the command reports failures itself. Returns whether every source was
    /// read. If one was not, the command's CommandError is printed.
    ///
    /// Throws CommandError, HostFileError, MofError or std::system_error; the messages of the last
    /// three name the file.
    bool On(const Machine& machine,
            const std::function<void(const service::ProviderHost&)>& command);

private:
    std::unique_ptr<service::ProviderHost> Start(const Options& options);
    [[noreturn]] void End(unsigned seconds);

    FailureReport report_;
    std::mutex mutex_;  ///< guards the next two
    std::string prefix_;
    std::shared_ptr<service::SourceJournal> journal_;  ///< of the present machine
    std::optional<Deadline> deadline_;                 ///< the last member: it uses the others
};

/// Starts the provider that the options name on a recording. Throws what MachineRun::On throws.
std::unique_ptr<service::ProviderHost> StartOn(
    const Options& options, std::shared_ptr<const service::RecordedHost> recorded);

/// Writes an error to standard error: "qvsata: MESSAGE", a line with printable characters only.
void WriteErrorLine(const std::string& message);

/// Calls a function that concerns one of many machines. An error of that machine (CommandError,
/// HostFileError) becomes a line on standard error. Returns whether there was none.
bool Succeeds(const std::string& machine, const std::function<void()>& body);

/// Returns the exit code of two pieces of work: that of the worse.
int WorseOf(int one, int other);

}  // namespace qv::tool
