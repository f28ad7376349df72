#pragma once

#include "qvsata/service/Services.h"

namespace qv::service {

/// Returns a connector to the namespaces of this machine's own management service. Each answer is
/// read completely at once. Only one call runs at a time in the process, because Wine's management
/// service crashes when two threads query it. The calling threads must be in the multithreaded
/// apartment.
Connector ConnectLive();

}  // namespace qv::service
