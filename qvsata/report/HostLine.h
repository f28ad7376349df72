#pragma once

#include <string>

#include "qvsata/report/Host.h"
#include "qvsata/report/Html.h"

namespace qv::report {

/// Writes a host as a line of the index, with a link to its section.
/// @param id of the section's heading
void WriteLink(Html& html, const Host& host, const std::string& id);

/// Writes a host as a line of the index that opens: its disks, the worst first, and what could not
/// be read. Of very many disks it writes the first ones and counts the others.
void WriteFolded(Html& html, const Host& host);

}  // namespace qv::report
