#pragma once

#include "qvsata/doctor/Facts.h"

namespace qv::doctor {

/// Looks at both logs of the provider and at their settings: sets logs and settings.
void ReadLogs(Facts& facts);

}  // namespace qv::doctor
