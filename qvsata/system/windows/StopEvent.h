#pragma once

#include <windows.h>

namespace qv::tool {

/// Returns the event that is signalled once a stop request was made, for waits on several objects.
HANDLE StopEvent();

}  // namespace qv::tool
