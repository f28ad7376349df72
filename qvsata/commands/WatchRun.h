#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

#include "qvsata/output/Format.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::tool {

/// When a watch ends, in addition to Ctrl+C. Unset means no limit.
struct WatchLimits {
    std::optional<std::size_t> events;
    std::optional<std::chrono::seconds> time;
    /// A replay ends when its last recording was polled, and the provider's pauses are skipped.
    /// True: it keeps the pauses, and polls the last recording until another limit.
    bool realTime = false;
};

/// Says on standard error which disks are watched, subscribes to the provider's events and prints
/// each: a readable line, or a JSON document in one line, with the indication in it. The events of
/// a monitor cycle are printed when the cycle is over; then the host's next recording, if any, is
/// selected. Throws CommandError if the subscription fails or standard output cannot be written.
void RunWatch(const service::ProviderHost& host, const WatchLimits& limits, AnswerFormat format);

}  // namespace qv::tool
