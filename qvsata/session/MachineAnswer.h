#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "nlohmann/json.hpp"
#include "qvsata/service/ProviderHost.h"
#include "qvsata/session/Options.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::tool {

/// What a command prints about one machine, which may be one of many: then a text has a heading and
/// a document is one line, both with the computer's name and the recording.
class MachineAnswer {
public:
    /// @param host the only machine
    explicit MachineAnswer(const service::ProviderHost& host) : host_(host) {}

    /// @param printed how many of the machines have been printed
    MachineAnswer(const service::ProviderHost& host, std::string recording, std::size_t& printed)
        : host_(host), recording_(std::move(recording)), printed_(&printed) {}

    bool IsOneOfMany() const { return printed_ != nullptr; }

    void PrintText(view::StyledText text) const;
    /// Prints the members of `content`, and as "unread" each source that could not be read so far.
    void PrintJson(nlohmann::ordered_json content) const;
    /// Writes lines to standard error.
    void Warn(const std::string& lines) const;

private:
    const service::ProviderHost& host_;
    std::string recording_;
    std::size_t* printed_ = nullptr;
};

/// Runs a command on each recording that the options name, or on the machine itself. An error of
/// one of many recordings is a line on standard error, and the others go on. Throws as
/// RunOnProvider, and CommandError if nothing was printed.
void RunOnRecordings(
    const Options& options,
    const std::function<void(const service::ProviderHost&, const MachineAnswer&)>& command);

/// Makes `action(host, arguments, answer)` what a command does on the recordings of
/// arguments.options.
template <typename Arguments, typename Action>
void OnRecordings(CLI::App& command, std::shared_ptr<Arguments> arguments, Action action) {
    command.callback([arguments = std::move(arguments), action = std::move(action)] {
        RunOnRecordings(arguments->options,
                        [&](const service::ProviderHost& host, const MachineAnswer& answer) {
                            action(host, *arguments, answer);
                        });
    });
}

}  // namespace qv::tool
