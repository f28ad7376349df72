#pragma once

#include <string>

#include "qvsata/explain/Verdict.h"
#include "qvsata/report/Html.h"
#include "qvsata/report/Place.h"
#include "qvsata/view/OsDisk.h"

namespace qv::report {

/// Writes all facts of a disk.
/// @param id its identifier in the page
/// @param verdict what the provider makes of its row; null if that is not known
void WriteDiskCard(Html& html, const Place& place, const std::string& id, const view::OsDisk& disk,
                   const explain::Verdict* verdict);

/// Writes a disk as an item of a list: health, name, size, serial number, and why it is not
/// published.
void WriteDiskLine(Html& html, const view::OsDisk& disk);

/// Writes a health as a word with a colour and a sign.
void WriteBadge(Html& html, const view::Health& health);

}  // namespace qv::report
