#pragma once

#include <string>

namespace qv::tool {

/// Why a command ends without its answer.
struct Failure {
    std::string reason;        ///< one line, without its end
    int exitCode;              ///< see ExitCodes.h
    std::string details = {};  ///< further lines, each with its end
};

/// Says why a command failed, and returns the exit code of the process. Any thread may call it.
using FailureReport = int (*)(const Failure& failure);

/// Writes the failure to standard error, "qvsata: REASON" first. Returns its exit code.
int ReportOnErrors(const Failure& failure);

}  // namespace qv::tool
