#pragma once

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "CLI/CLI.hpp"
#include "qvsata/output/Format.h"

namespace qv::tool {

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

/// Adds --format, which takes one of the names; the first one is the default. Calls `choose` with
/// the index of the name given.
void AddNamedFormats(CLI::App& command, const std::vector<std::string>& names,
                     std::function<void(std::size_t)> choose);

/// A name that --format takes, and the value it stands for.
template <typename Value>
using NamedFormat = std::pair<std::string, Value>;

/// Adds --format, which takes one of the names and sets `chosen` to its value. The first name is
/// the default; `chosen` has its value already.
template <typename Value>
void AddFormatOption(CLI::App& command, std::vector<NamedFormat<Value>> formats, Value& chosen) {
    std::vector<std::string> names;
    std::ranges::transform(formats, std::back_inserter(names), &NamedFormat<Value>::first);
    AddNamedFormats(command, names, [formats = std::move(formats), &chosen](std::size_t index) {
        chosen = formats[index].second;
    });
}

}  // namespace qv::tool
