#include "qvsata/view/KeyWarnings.h"

#include <utility>

#include "qvsata/view/text/Columns.h"
#include "source/Text.h"

namespace qv::view {
namespace {

struct ComparedDisk {
    std::string number;
    std::string id;  ///< folded once: there are many pairs
};

/// Returns the published disks that have an ID.
std::vector<ComparedDisk> ComparedAmong(const std::vector<OsDisk>& disks) {
    std::vector<ComparedDisk> published;
    for (const OsDisk& disk : disks) {
        if (disk.whyUnpublished.empty() && !disk.deviceId.empty()) {
            published.push_back({DriveNumberText(disk.number), FoldCase(disk.deviceId)});
        }
    }
    return published;
}

bool IsPartOf(const ComparedDisk& part, const ComparedDisk& whole) {
    return whole.id.find(part.id) != std::string::npos;
}

std::string PartWarning(const ComparedDisk& part, const ComparedDisk& whole) {
    return "the plug-and-play ID of disk " + part.number + " is part of that of disk " +
           whole.number + ": associations of one may name the other, too";
}

std::string Warning(const ComparedDisk& one, const ComparedDisk& other) {
    if (one.id == other.id) {
        return "disks " + one.number + " and " + other.number +
               " have one plug-and-play ID: their instances have the same keys";
    }
    if (IsPartOf(one, other)) {
        return PartWarning(one, other);
    }
    return IsPartOf(other, one) ? PartWarning(other, one) : "";
}

}  // namespace

std::vector<std::string> KeyWarningLines(const std::vector<OsDisk>& disks) {
    std::vector<std::string> lines;
    for (const OsDisk& disk : disks) {
        if (disk.whyUnpublished.empty() && disk.deviceId.empty()) {
            lines.push_back("disk " + DriveNumberText(disk.number) + " has no plug-and-play ID");
        }
    }
    const std::vector<ComparedDisk> published = ComparedAmong(disks);
    for (auto one = published.begin(); one != published.end(); ++one) {
        for (auto other = one + 1; other != published.end(); ++other) {
            if (std::string warning = Warning(*one, *other); !warning.empty()) {
                lines.push_back(std::move(warning));
            }
        }
    }
    return lines;
}

std::string KeyWarnings(const std::vector<OsDisk>& disks) {
    std::string lines;
    for (const std::string& line : KeyWarningLines(disks)) {
        lines += "warning: " + line + '\n';
    }
    return lines;
}

std::vector<std::string> SerialNumberWarnings(const std::vector<OsDisk>& disks) {
    std::vector<std::string> lines;
    for (auto one = disks.begin(); one != disks.end(); ++one) {
        if (!one->whyUnpublished.empty()) {
            continue;
        }
        if (one->serialNumber.empty()) {
            lines.push_back("disk " + DriveNumberText(one->number) +
                            " is published without a serial number");
            continue;
        }
        for (auto other = one + 1; other != disks.end(); ++other) {
            if (other->whyUnpublished.empty() && one->serialNumber == other->serialNumber) {
                lines.push_back("disks " + DriveNumberText(one->number) + " and " +
                                DriveNumberText(other->number) +
                                " are published with one serial number: " + one->serialNumber);
            }
        }
    }
    return lines;
}

}  // namespace qv::view
