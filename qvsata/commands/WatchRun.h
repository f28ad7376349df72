#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

#include "qvsata/service/ProviderHost.h"

namespace qv::tool {

/// When a watch ends, besides at Ctrl+C.
struct WatchLimits {
    std::optional<std::size_t> events;
    std::optional<std::chrono::seconds> time;
};

/// How an event is written: as a line for a reader, or as a line with a JSON object that has every
/// property of the indication.
enum class EventFormat { text, json };

/// Subscribes to the provider's events and prints each. The events of a cycle of the provider's
/// monitor are printed when it is over; then the host's next recording, if there is one, becomes
/// the present one. Raises CommandError when there can be no subscription.
void RunWatch(const service::ProviderHost& host, const WatchLimits& limits, EventFormat format);

}  // namespace qv::tool
