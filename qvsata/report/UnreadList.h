#pragma once

#include "qvsata/report/Host.h"
#include "qvsata/report/Html.h"

namespace qv::report {

/// Writes each source of a host that could not be read and what is lost without it, or that all
/// were read.
void WriteUnread(Html& html, const Host& host);

}  // namespace qv::report
