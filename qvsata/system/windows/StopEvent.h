#pragma once

#include <windows.h>

namespace qv::tool {

/// The kernel object that is signalled once a StopRequest was made, to be waited for with others.
HANDLE StopEvent();

}  // namespace qv::tool
