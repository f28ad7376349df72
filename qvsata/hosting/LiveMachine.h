#pragma once

#include <chrono>
#include <optional>

#include "qvsata/service/Services.h"

namespace qv::service {

/// Returns a connector to the namespaces of this machine's own management service. Each answer is
/// read completely at once. Only one call runs at a time in the process, because Wine's management
/// service crashes when two threads query it. The calling threads must be in the multithreaded
/// apartment.
/// @param timeout the longest time for the rows of one query, which ends with status::timedOut
/// then; unset for no limit. A connection takes two minutes at most with a timeout
/// (WBEM_FLAG_CONNECT_USE_MAX_WAIT).
Connector ConnectLive(std::optional<std::chrono::milliseconds> timeout);

}  // namespace qv::service
