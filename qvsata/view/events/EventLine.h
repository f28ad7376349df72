#pragma once

#include <cstddef>
#include <optional>

#include "qvsata/view/events/DiskEvent.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Returns an event as a line, with its line feed: time, event ID, meaning, drive number, model,
/// change, device ID.
/// @param columns the width of the terminal: a line that is longer goes on in the next line; unset
/// for no limit
StyledText EventLine(const DiskEvent& event, std::optional<std::size_t> columns = std::nullopt);

}  // namespace qv::view
