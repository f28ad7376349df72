#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/metrics/Exposition.h"
#include "qvsata/view/Health.h"
#include "qvsata/view/OsDisk.h"

namespace qv::metrics {

/// A class of the operating system that was queried.
struct Source {
    std::string_view className;
    std::optional<std::size_t> rows;  ///< unset if it could not be read
    std::chrono::microseconds time{};
};

/// What one run saw of a machine.
struct Machine {
    std::string version;  ///< of the program
    std::chrono::sys_seconds time;
    std::optional<std::chrono::sys_seconds> recorded{};  ///< of a recording: its last change
    std::string computer;  ///< empty if the computer's name cannot be read
    std::vector<Source> sources;
    view::OsDisks disks;
    std::optional<std::size_t> published{};   ///< how many are published, if known
    std::optional<view::Health> collection;   ///< the published consolidated status, if any
    std::optional<unsigned> expectedDisks{};  ///< of the published disks
};

/// The number of disks that have series of their own; of more disks, the worst have.
inline constexpr std::size_t mostDisks = 256;

/// Returns the families that docs/MONITORING.md lists. What is not known has no series.
std::vector<Family> FamiliesOf(const Machine& machine);

}  // namespace qv::metrics
