#include "qvsata/view/DiskCells.h"

#include <optional>
#include <string>
#include <string_view>

#include "qvsata/view/Columns.h"
#include "qvsata/view/StyledStatus.h"

namespace qv::view {
namespace {

/// Returns `bytes` in units of `unit`, rounded to the nearest tenth.
std::string Tenths(std::uint64_t bytes, std::uint64_t unit) {
    const std::uint64_t tenths = bytes / unit * 10 + (bytes % unit * 10 + unit / 2) / unit;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10);
}

std::string SizeText(const Disk& disk, std::uint64_t unit, const std::string& name) {
    return disk.size ? Tenths(*disk.size, unit) + ' ' + name : "-";
}

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

std::vector<Cell> DiskCells(const Disk& disk) {
    constexpr std::uint64_t gigabyte = 1'000'000'000;
    constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30U;
    return {{StatusSpan(disk.status)},
            {{OrDash(disk.model)}},
            {{SizeText(disk, gigabyte, "GB")}, true},
            {{SizeText(disk, gibibyte, "GiB"), Style::faint}, true},
            {{PartitionText(disk)}},
            {{"S/N " + OrDash(disk.serialNumber)}}};
}

}  // namespace qv::view
