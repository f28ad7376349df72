#pragma once

#include <cstdint>
#include <string_view>

namespace qv {

/// Levels of log lines. A log's configured level is the lowest that is written.
enum class LogLevel : std::uint32_t {
    debug = 1,
    verbose = 2,  ///< a query that failed
    information = 3,
    warning = 4,
    error = 5,
    silent = 1024,  ///< the level of a log that cannot be written
};

/// Returns whether a log configured for one level takes lines of another.
constexpr bool TakesLines(LogLevel configured, LogLevel ofLine) {
    return configured <= ofLine;
}

}  // namespace qv

namespace qv::platform {

/// The core's diagnostic log. Several threads may call it at once.
class LogPort {
public:
    virtual ~LogPort() = default;

    /// The configured level. Callers check TakesLines before writing.
    virtual LogLevel Level() const = 0;

    /// Writes one line, whatever the configured level. `text` is complete:
    /// "Class::Operation| message". A line that cannot be written is lost; the call throws nothing.
    virtual void Write(LogLevel level, std::string_view text) = 0;
};

}  // namespace qv::platform
