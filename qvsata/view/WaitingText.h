#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace qv::view {

/// Which of how many recordings a monitor saw last, counted from 1. There are none on the machine
/// itself.
struct SeenRecording {
    std::size_t number = 0;
    std::size_t count = 0;
};

/// What a monitor is going to look at next, and when, in words.
std::string WaitingText(const SeenRecording& seen, std::chrono::milliseconds left);

}  // namespace qv::view
