#include "qvsata/view/DiskCells.h"

#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {

CellRow DiskCells(const Disk& disk) {
    return {{{disk.number ? DriveNumberText(disk.number) : ""}, true},
            {StatusSpan(HealthOf(disk))},
            {{OrDash(disk.model)}},
            {{GigabytesText(disk.size)}, true},
            {{GibibytesText(disk.size), Style::faint}, true},
            {SerialNumberSpan("S/N ", disk.serialNumber, disk.serialNumberIsRead)}};
}

}  // namespace qv::view
