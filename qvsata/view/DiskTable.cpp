#include "qvsata/view/DiskTable.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"
#include "qvsata/view/text/TextTable.h"

namespace qv::view {
namespace {

// The places of the columns that a narrow terminal may lack.
constexpr std::size_t size = 3;
constexpr std::size_t bus = 4;
constexpr std::size_t attachment = 6;
constexpr std::size_t firmware = 7;
constexpr std::size_t serialNumber = 8;

const CellRow heading{
    {{"#", Style::faint}, true},     {{"Health", Style::faint}},   {{"Model", Style::faint}},
    {{"Size", Style::faint}, true},  {{"Bus", Style::faint}},      {{"Published", Style::faint}},
    {{"Attached to", Style::faint}}, {{"Firmware", Style::faint}}, {{"S/N", Style::faint}}};

Span AttachmentSpan(const OsDisk& disk) {
    if (disk.attachmentName.empty() && !disk.attachmentIsRead) {
        return {"not readable", Style::caution};
    }
    return {OrDash(disk.attachmentName)};
}

CellRow RowOf(const OsDisk& disk) {
    return {{{DriveNumberText(disk.number)}, true},
            {StatusSpan(HealthOf(disk))},
            {{OrDash(disk.model)}},
            {{GigabytesText(disk.size)}, true},
            {{OrDash(disk.bus)}},
            {disk.whyUnpublished.empty()
                 ? Span{"yes"}
                 : Span{"no: " + Printable(disk.whyUnpublished), Style::caution}},
            {AttachmentSpan(disk)},
            {{OrDash(disk.firmware)}},
            {SerialNumberSpan("", disk.serialNumber, disk.serialNumberIsRead)}};
}

}  // namespace

StyledText DisksAsText(const std::vector<OsDisk>& disks, std::optional<std::size_t> columns) {
    constexpr std::size_t inTitle = 3;
    TextTable table{heading, {}, inTitle, {serialNumber, size, bus, firmware, attachment}};
    std::ranges::transform(disks, std::back_inserter(table.rows), RowOf);
    return TableAsText(table, columns);
}

}  // namespace qv::view
