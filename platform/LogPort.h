#pragma once

#include <string_view>

namespace qv::platform {

/// Where the core writes a line for the one who looks for a fault. Several threads may call it at
/// once.
class LogPort {
public:
    virtual ~LogPort() = default;

    /// The configured level: 1 (everything) to 5 (failures only), or 1024 (silent: nothing is to be
    /// written) while there is no log to write to. What a line needs of it is up to the one who
    /// writes the line.
    virtual int Level() const = 0;

    /// Writes one line at a level (2: a query that failed, 3: information, 5: failure), whatever
    /// the configured level. The text is whole, "Class::Operation| message". A line that cannot be
    /// written is lost; nothing is raised.
    virtual void Write(int level, std::string_view text) = 0;
};

}  // namespace qv::platform
