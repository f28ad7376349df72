#pragma once

#include <array>

#include "CLI/CLI.hpp"
#include "qvsata/session/Failure.h"

namespace qv::tool {

// Each function adds one command to the program. The command runs when the command line names it,
// and throws what Session.h throws.
void AddAssociators(CLI::App& program);
void AddCapture(CLI::App& program);
void AddCheck(CLI::App& program);
void AddClasses(CLI::App& program);
void AddDiff(CLI::App& program);
void AddDisks(CLI::App& program);
void AddDoctor(CLI::App& program);
void AddEnumerate(CLI::App& program);
void AddExplain(CLI::App& program);
void AddGet(CLI::App& program);
void AddMetrics(CLI::App& program);
void AddQuery(CLI::App& program);
void AddReferences(CLI::App& program);
void AddRegister(CLI::App& program);
void AddReport(CLI::App& program);
void AddSources(CLI::App& program);
void AddTopology(CLI::App& program);
void AddUnregister(CLI::App& program);
void AddWatch(CLI::App& program);

/// Reports a failure of `check` to a monitoring engine. Returns the exit code of UNKNOWN.
int ReportUnchecked(const Failure& failure);

/// A command of the program.
struct Command {
    void (*add)(CLI::App& program);
    /// Reports its failures, from a wrong command line to output that cannot be written.
    FailureReport report = ReportOnErrors;
};

/// All of them, in the order in which --help lists them.
inline constexpr auto commands = std::to_array<Command>({
    {AddDisks},      {AddExplain},
    {AddTopology},   {AddClasses},
    {AddEnumerate},  {AddGet},
    {AddQuery},      {AddAssociators},
    {AddReferences}, {AddSources},
    {AddCapture},    {AddDiff},
    {AddWatch},      {AddCheck, ReportUnchecked},
    {AddMetrics},    {AddReport},
    {AddRegister},   {AddUnregister},
    {AddDoctor},
});

}  // namespace qv::tool
