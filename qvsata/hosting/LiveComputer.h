#pragma once

#include "qvsata/recorded/RecordedHost.h"

namespace qv::service {

/// Returns this computer's names, the version of its system and its ANSI code page, as a recording
/// without rows. A name that cannot be read is empty.
RecordedHost ReadLiveComputer();

}  // namespace qv::service
