#include "qvsata/view/events/EventLine.h"

#include <string>
#include <vector>

#include "qvsata/view/text/CellRow.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

/// Wide enough for what is usual, so that the columns of most lines stand below each other.
const std::vector<std::size_t> usualWidths{19, 3, 17, 3, 24, 22, 0};

CellRow CellsOf(const DiskEvent& event) {
    const OsDisk* const disk = event.Seen();
    return {{{event.time}},
            {{event.eventId, event.meaning.style}},
            {{std::string(event.meaning.words), event.meaning.style}},
            {{DriveNumberText(disk == nullptr ? std::nullopt : disk->number)}},
            {{OrDash(event.model)}},
            {{ChangeText(event)}},
            {{OrDash(event.deviceId), Style::faint}}};
}

}  // namespace

StyledText EventLine(const DiskEvent& event, std::optional<std::size_t> columns) {
    const CellRow cells = CellsOf(event);
    std::vector<std::size_t> widths = usualWidths;
    WidenFor(cells, widths);
    StyledText text;
    if (columns && WidthOfRow(widths) > *columns) {
        AppendFlowed(cells, "  ", {0, "    ", *columns}, text);
    } else {
        AppendRow(cells, widths, text);
    }
    return text;
}

}  // namespace qv::view
