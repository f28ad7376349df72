#pragma once

#include <optional>
#include <vector>

#include "qvsata/view/OsDisk.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Returns one line per disk in aligned columns, by drive number: number, health, model, size, bus,
/// published or why not, attachment, firmware, serial number. Where `columns` are too few, columns
/// are left out, of these the last first: serial number, size, bus, firmware, attachment. If the
/// others do not fit, each disk has a block of lines; so no word is broken. Without `columns` the
/// table is never too wide.
StyledText DisksAsText(const std::vector<OsDisk>& disks, std::optional<std::size_t> columns);

}  // namespace qv::view
