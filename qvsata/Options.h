#pragma once

#include <functional>
#include <string>
#include <vector>

#include "CLI/CLI.hpp"

namespace qv::tool {

/// How objects are written.
enum class Format { text, json, mof };

/// What every command that asks the provider is told: where the machine's facts come from, which
/// provider, how to write the answer.
struct Options {
    std::string host;                     ///< file of a recorded host; empty without --host
    std::vector<std::string> laterHosts;  ///< files of what the recorded host becomes, in order
    bool live = false;
    std::string library;                    ///< empty: beside this program
    std::string mofFolder;                  ///< empty: beside this program
    std::vector<std::string> installedMof;  ///< files of classes that the namespace has already
    bool registered = false;
    Format format = Format::text;
};

/// Adds the options to a command; they are kept in `options` when the command line is read. Exactly
/// one of --host and --live has to be given.
void AddOptions(CLI::App& command, Options& options);

/// The same without --format, for a command with formats of its own.
void AddSourceOptions(CLI::App& command, Options& options);

/// Adds --format. `choose` is called with the position of the given one of the names, of which the
/// first is the default.
void AddFormatOption(CLI::App& command, const std::vector<std::string>& names,
                     std::function<void(std::size_t)> choose);

}  // namespace qv::tool
