#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

#include "qvsata/explain/SourceRows.h"

namespace qv::explain {

/// Rows name each other more often than a limit allows: rows with equal IDs name every disk, and
/// the verdicts take time and memory for each time.
class TooManyJoins : public std::runtime_error {
public:
    /// @param subject the class, and what it does more often than `most` times
    TooManyJoins(std::string_view subject, std::size_t most, const std::string& counted)
        : std::runtime_error(std::string(subject) + " more than " + std::to_string(most) +
                             counted) {}
};

/// Throws TooManyJoins if the rows of a source class name disks more than `most` times in all.
void CheckJoins(const SourceRows& rows, std::size_t most);

}  // namespace qv::explain
