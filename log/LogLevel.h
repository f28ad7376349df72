#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

/// Levels of log lines. A log's own level is the lowest that its callers write.
enum class LogLevel : std::uint32_t {
    debug = 1,
    verbose = 2,
    information = 3,
    warning = 4,
    error = 5,
    /// What a log's level becomes when its mutex cannot be created: no caller writes.
    silent = 1024,
};

/// "Debug", "Verbose", "Information", "Warning", "Error"; "N/A" for anything else.
std::wstring_view NameOf(LogLevel level);

}  // namespace qv
