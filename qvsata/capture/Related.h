#pragma once

#include "qvsata/recorded/RecordedHost.h"

namespace qv::capture {

/// Returns the recording without what nobody needs who looks for a disk: the rows of devices and
/// drivers, and of their links, to which no controller of the recording leads, and the signatures
/// of disks. What the provider publishes is the same.
service::RecordedHost Related(const service::RecordedHost& host);

}  // namespace qv::capture
