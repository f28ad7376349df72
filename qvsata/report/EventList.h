#pragma once

#include <vector>

#include "qvsata/report/Host.h"
#include "qvsata/report/Html.h"

namespace qv::report {

/// Writes the events of each step from one recording to the next.
void WriteEvents(Html& html, const std::vector<Step>& steps);

}  // namespace qv::report
