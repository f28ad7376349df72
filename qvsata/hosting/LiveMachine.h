#pragma once

#include "qvsata/service/Services.h"

namespace qv::service {

/// Connects to the namespaces of this machine's own management service. What it answers is read to
/// its end at once, and one call runs at a time in the whole process: Wine's management service
/// crashes when two threads query it. The calling threads are in the multithreaded apartment.
Connector ConnectLive();

}  // namespace qv::service
