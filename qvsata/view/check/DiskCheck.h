#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/view/Health.h"
#include "qvsata/view/OsDisk.h"

namespace qv::view {

/// What a check needed and could not read.
struct Unread {
    std::string name;  ///< a class, a namespace: "Win32_DiskDrive"
    std::string line;  ///< what is known of it, without the end of the line
};

/// What a check looks at.
struct CheckSubject {
    OsDisks all;
    /// The number of published disks, and their consolidated status; unset if it is not known.
    std::optional<std::size_t> published = {};
    std::optional<Health> consolidated = {};
    std::vector<Unread> unread = {};
    /// The number of disks that should be published; unset if any number is fine.
    std::optional<std::size_t> expected = {};
};

/// What a check says to a monitoring engine, by the convention of monitoring plug-ins.
struct CheckResult {
    int exitCode = 0;  ///< 0 OK, 1 WARNING, 2 CRITICAL, 3 UNKNOWN
    /// "SATA STATE - SUMMARY | PERFORMANCE DATA", a line of at most 1 KiB. Then a line for each
    /// finding, the worst first, each source that could not be read, and each reason why disks
    /// cannot be told apart.
    std::string text;
};

/// Judges all disks of a machine, published or not. A disk that failed, or whose failure is
/// predicted, is CRITICAL, a degraded one a WARNING. UNKNOWN are a disk whose status or prediction
/// is not known, and anything that could not be read. Fewer published disks than expected are
/// CRITICAL, more are a WARNING. Of several states the last one of OK, WARNING, UNKNOWN, CRITICAL
/// counts.
CheckResult CheckDisks(const CheckSubject& subject);

/// Returns what a check says that could not be made: UNKNOWN.
/// @param reason a line without its end
/// @param details further lines
CheckResult FailedCheck(std::string_view reason, std::string_view details = {});

}  // namespace qv::view
