#pragma once

#include <array>

#include "CLI/CLI.hpp"

namespace qv::tool {

// Each function adds one command to the program. The command runs when the command line names it,
// and throws what Session.h throws.
void AddAssociators(CLI::App& program);
void AddCapture(CLI::App& program);
void AddClasses(CLI::App& program);
void AddDiff(CLI::App& program);
void AddDisks(CLI::App& program);
void AddDoctor(CLI::App& program);
void AddEnumerate(CLI::App& program);
void AddExplain(CLI::App& program);
void AddGet(CLI::App& program);
void AddQuery(CLI::App& program);
void AddReferences(CLI::App& program);
void AddRegister(CLI::App& program);
void AddReport(CLI::App& program);
void AddSources(CLI::App& program);
void AddTopology(CLI::App& program);
void AddUnregister(CLI::App& program);
void AddWatch(CLI::App& program);

/// All of them, in the order in which --help lists them.
inline constexpr std::array commands{
    AddDisks, AddExplain,     AddTopology,   AddClasses,    AddEnumerate, AddGet,
    AddQuery, AddAssociators, AddReferences, AddSources,    AddCapture,   AddDiff,
    AddWatch, AddReport,      AddRegister,   AddUnregister, AddDoctor};

}  // namespace qv::tool
