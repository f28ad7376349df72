#pragma once

#include <functional>
#include <string>
#include <vector>

#include "CLI/CLI.hpp"
#include "qvsata/output/Format.h"

namespace qv::tool {

/// The options of every command that uses the provider: the source of the machine's facts, the
/// provider and the output format.
struct Options {
    std::string host;                     ///< file of a recorded host; empty without --host
    std::vector<std::string> laterHosts;  ///< files of later recordings of the host, in order
    bool live = false;
    std::string library;                    ///< empty: beside this program
    std::string mofFolder;                  ///< empty: beside this program
    std::vector<std::string> installedMof;  ///< files of classes that already exist
    bool registered = false;
    Format format = Format::text;
};

/// Adds the options to a command; parsing the command line fills `options`. Exactly one of --host
/// and --live is required.
void AddOptions(CLI::App& command, Options& options);

/// Adds the same options without --format, for a command with its own formats.
void AddSourceOptions(CLI::App& command, Options& options);

/// Adds --format. Parsing calls `choose` with the position in `names` of the given name. The first
/// name is the default.
void AddFormatOption(CLI::App& command, const std::vector<std::string>& names,
                     std::function<void(std::size_t)> choose);

}  // namespace qv::tool
