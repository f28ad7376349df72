#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "nlohmann/json.hpp"
#include "qvsata/service/ProviderHost.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"

namespace qv::tool {

/// Runs a command on the machine that the options name (see MachineRun). Throws as MachineRun::On,
/// and CommandEnd if a source could not be read.
void RunOnProvider(const Options& options,
                   const std::function<void(const service::ProviderHost&)>& command);

/// Makes `action(host, arguments)` what a command does on the provider that arguments.options name.
template <typename Arguments, typename Action>
void OnProvider(CLI::App& command, std::shared_ptr<Arguments> arguments, Action action) {
    command.callback([arguments = std::move(arguments), action = std::move(action)] {
        RunOnProvider(arguments->options,
                      [&](const service::ProviderHost& host) { action(host, *arguments); });
    });
}

/// Returns `content` with the member "unread": each source that could not be read so far.
nlohmann::ordered_json WithUnread(const service::ProviderHost& host,
                                  nlohmann::ordered_json content);

/// Prints a JSON document: WithUnread(content).
void PrintDocument(const service::ProviderHost& host, nlohmann::ordered_json content);

/// Returns the answer's objects; throws CommandError if the answer is a failure.
service::ObjectList Take(service::Answer answer);

/// Prints the answer's objects; "(not readable)" for an empty answer that rests on a source that
/// could not be read. Throws CommandError if the answer is a failure.
void PrintAnswer(const service::ProviderHost& host, service::Answer answer, Format format);

}  // namespace qv::tool
