#include "qvsata/view/DiskCells.h"

#include <optional>
#include <string>
#include <string_view>

#include "qvsata/view/Columns.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/StyledStatus.h"

namespace qv::view {
namespace {

std::string PartitionText(const Disk& disk) {
    std::string words;
    const auto append = [&words](const std::optional<bool>& flag, std::string_view word) {
        if (flag.value_or(false)) {
            words += words.empty() ? "" : ", ";
            words += word;
        }
    };
    append(disk.bootable, "bootable");
    append(disk.bootPartition, "boot");
    append(disk.primaryPartition, "primary");
    return words;
}

}  // namespace

CellRow DiskCells(const Disk& disk) {
    return {{StatusSpan(disk.status)},
            {{OrDash(disk.model)}},
            {{GigabytesText(disk.size)}, true},
            {{GibibytesText(disk.size), Style::faint}, true},
            {{PartitionText(disk)}},
            {{"S/N " + SerialNumberText(disk.serialNumber)}}};
}

}  // namespace qv::view
