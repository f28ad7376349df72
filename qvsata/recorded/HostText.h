#pragma once

#include <string>

#include "qvsata/recorded/RecordedHost.h"

namespace qv::service {

/// Returns the JSON form of a recorded host, which ReadHostText reads: each row in a line of its
/// own, with a line feed at the end. Real numbers and arrays of booleans, which the form lacks, are
/// left out; they cannot be read then. A number beyond 32 signed bits becomes the signed number
/// with the same 32 bits, as the management service delivers it.
std::string HostAsText(const RecordedHost& host);

}  // namespace qv::service
