#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "CLI/CLI.hpp"
#include "qvsata/output/Format.h"
#include "qvsata/session/Failure.h"

namespace qv::tool {

/// The options of every command that uses the provider: the source of the machine's facts, the
/// provider and the output format.
struct Options {
    std::string host;  ///< file of a recorded host; empty without --host
    /// Files and folders of recorded hosts, for a command that takes several.
    std::vector<std::string> hosts;
    std::vector<std::string> laterHosts;  ///< files of later recordings of the host, in order
    bool live = false;
    unsigned limit = 100;        ///< see MostBytes and MostRows
    unsigned timeout = 0;        ///< seconds for the command; 0: no limit
    unsigned queriesInTime = 2;  ///< so many queries of the machine fit into it
    bool isEndless = false;      ///< the timeout is for each query only
    /// How the command reports failures; null: by ReportOnErrors. A command with a report of its
    /// own also names the sources that could not be read itself.
    FailureReport report = nullptr;
    std::string library;                    ///< empty: beside this program
    std::string mofFolder;                  ///< empty: beside this program
    std::vector<std::string> installedMof;  ///< files of classes that already exist
    bool registered = false;
    std::string logFolder;  ///< of the provider's logs; empty: none
    Format format = Format::text;

    /// Returns the greatest size of a recording or of a MOF file.
    std::uintmax_t MostBytes() const { return std::uintmax_t{limit} << 20U; }

    /// Returns the greatest number of what rows make of each other: instances of a class, linked
    /// partitions, and disks that the rows of a class name.
    std::size_t MostRows() const { return std::size_t{1000} * limit; }
};

/// Adds the options to a command; parsing the command line fills `options`. Exactly one of --host
/// and --live is required.
void AddOptions(CLI::App& command, Options& options);

/// Makes the value of an option a whole number from `least` to 10^9 of a unit ("SECONDS").
void CheckWhole(CLI::Option* option, unsigned least, const char* unit);

/// Adds the same options without --format, for a command with its own formats.
void AddSourceOptions(CLI::App& command, Options& options);

/// Adds the same options for a command that takes several recorded hosts: --host may be repeated,
/// and names files and folders.
void AddFleetOptions(CLI::App& command, Options& options);

/// Adds --then to a command that has --host: later recordings of the host.
void AddThen(CLI::App& command, Options& options);

/// Adds the options of the provider and of its time, without the source of the machine's facts.
void AddProviderOptions(CLI::App& command, Options& options);

/// Adds --format. Parsing calls `choose` with the position in `names` of the given name. The first
/// name is the default.
void AddNamedFormats(CLI::App& command, const std::vector<std::string>& names,
                     std::function<void(std::size_t)> choose);

/// A name that --format accepts, and its value.
template <typename Value>
using NamedFormat = std::pair<std::string, Value>;

/// Adds --format. Parsing sets `chosen` to the value of the given name. The first name is the
/// default, whose value `chosen` already has.
template <typename Value>
void AddFormatOption(CLI::App& command, std::vector<NamedFormat<Value>> formats, Value& chosen) {
    std::vector<std::string> names;
    std::ranges::transform(formats, std::back_inserter(names), &NamedFormat<Value>::first);
    AddNamedFormats(command, names, [formats = std::move(formats), &chosen](std::size_t index) {
        chosen = formats[index].second;
    });
}

/// Adds --format with the names text and json.
void AddAnswerFormat(CLI::App& command, AnswerFormat& chosen);

}  // namespace qv::tool
