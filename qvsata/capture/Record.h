#pragma once

#include "qvsata/recorded/RecordedHost.h"
#include "qvsata/service/Services.h"

namespace qv::capture {

/// Records all rows of the captured classes of a machine. A class that fails is recorded as failing
/// with the status of its query, or of the connection to its namespace; a namespace that the
/// machine lacks is left out. So a query of the recording ends as it did on the machine. Rows
/// before a failure are not kept: the provider does not use them either.
/// @param computer the machine's names and system
service::RecordedHost Record(const service::Connector& machine,
                             const service::RecordedHost& computer);

}  // namespace qv::capture
