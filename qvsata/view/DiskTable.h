#pragma once

#include <optional>
#include <vector>

#include "qvsata/view/OsDisk.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Returns one line per disk in aligned columns, by drive number: number, health, model, size, bus,
/// published or why not, attachment, firmware, serial number. A table that is wider than `columns`
/// becomes one block of lines per disk, so no word is broken; without `columns` it is never too
/// wide.
StyledText DisksAsText(const std::vector<OsDisk>& disks, std::optional<std::size_t> columns);

}  // namespace qv::view
