#include "qvsata/view/KeyWarnings.h"

#include "qvsata/view/text/Columns.h"
#include "source/Text.h"

namespace qv::view {
namespace {

bool IsPartOf(const OsDisk& part, const OsDisk& whole) {
    return FoldCase(whole.deviceId).find(FoldCase(part.deviceId)) != std::string::npos;
}

std::string PartWarning(const OsDisk& part, const OsDisk& whole) {
    return "warning: the plug-and-play ID of disk " + DriveNumberText(part.number) +
           " is part of that of disk " + DriveNumberText(whole.number) +
           ": associations of one may name the other, too\n";
}

std::string Warning(const OsDisk& one, const OsDisk& other) {
    if (EqualsIgnoringCase(one.deviceId, other.deviceId)) {
        return "warning: disks " + DriveNumberText(one.number) + " and " +
               DriveNumberText(other.number) +
               " have one plug-and-play ID: their instances have the same keys\n";
    }
    if (IsPartOf(one, other)) {
        return PartWarning(one, other);
    }
    return IsPartOf(other, one) ? PartWarning(other, one) : "";
}

}  // namespace

std::string KeyWarnings(const std::vector<OsDisk>& disks) {
    std::string lines;
    for (auto one = disks.begin(); one != disks.end(); ++one) {
        for (auto other = one + 1; other != disks.end(); ++other) {
            if (one->whyUnpublished.empty() && other->whyUnpublished.empty()) {
                lines += Warning(*one, *other);
            }
        }
    }
    return lines;
}

}  // namespace qv::view
