#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace qv::view {

/// The recording that a monitor read last, counted from 1, and the number of recordings. Both are 0
/// on the machine itself.
struct SeenRecording {
    std::size_t number = 0;
    std::size_t count = 0;
};

/// Describes what the monitor polls next, and when.
std::string WaitingText(const SeenRecording& seen, std::chrono::milliseconds left);

}  // namespace qv::view
