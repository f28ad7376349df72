#include "qvsata/session/SourceReport.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/session/ExitCodes.h"
#include "source/Text.h"

namespace qv::tool {
const std::vector<SourceClass>& SourceClasses() {
    static const std::vector<SourceClass> classes{
        {cimNamespace, "Win32_DiskDrive", "disks and what belongs to them cannot be published"},
        {cimNamespace, "Win32_PhysicalMedia", "serial numbers of disks cannot be published"},
        {cimNamespace, "Win32_IDEController", "controllers and channels cannot be published"},
        {cimNamespace, "Win32_IDEControllerDevice",
         "where disks and channels are attached cannot be published"},
        {cimNamespace, "Win32_DiskDriveToDiskPartition",
         "partitions of storage extents cannot be published"},
        {cimNamespace, "Win32_DiskPartition", "partitions of storage extents cannot be published"},
        {cimNamespace, "Win32_PnPDevice",
         "drivers, firmware and BIOS of controllers cannot be published"},
        {cimNamespace, "Win32_PnPEntity",
         "drivers, firmware and BIOS of controllers cannot be published"},
        {cimNamespace, "Win32_SystemDriverPNPEntity",
         "drivers, firmware and BIOS of controllers cannot be published"},
        {cimNamespace, "Win32_SystemDriver",
         "drivers, firmware and BIOS of controllers cannot be published"},
        {wmiNamespace, "MSStorageDriver_FailurePredictStatus",
         "disks cannot be watched, and predicted failures are not seen"},
        {cimNamespace, "", "disks, controllers and what belongs to them cannot be published"},
        {wmiNamespace, "", "disks cannot be watched, and predicted failures are not seen"},
    };
    return classes;
}

std::string_view LossWithout(std::string_view nameSpace, std::string_view className) {
    const auto found = std::ranges::find_if(SourceClasses(), [&](const SourceClass& source) {
        return EqualsIgnoringCase(source.nameSpace, nameSpace) &&
               EqualsIgnoringCase(source.name, className);
    });
    return found == SourceClasses().end() ? "what is linked to it cannot be published"
                                          : found->loss;
}

std::vector<service::SourceQuery> UnreadSources(const std::vector<service::SourceQuery>& queries) {
    std::vector<service::SourceQuery> unread;
    for (const service::SourceQuery& query : queries) {
        const bool isKnown = std::ranges::any_of(
            unread, [&query](const service::SourceQuery& one) { return IsSameEnd(one, query); });
        if (!WasRead(query) && !isKnown) {
            unread.push_back(query);
        }
    }
    return unread;
}

bool IsUnread(const std::vector<service::SourceQuery>& queries, std::string_view nameSpace,
              std::string_view className) {
    return std::ranges::any_of(queries, [&](const service::SourceQuery& query) {
        return !WasRead(query) && EqualsIgnoringCase(query.nameSpace, nameSpace) &&
               (query.className.empty() || EqualsIgnoringCase(query.className, className));
    });
}

std::string EndText(const service::SourceQuery& query) {
    using service::SourceEnd;
    switch (query.end) {
        case SourceEnd::answered:
            return "OK";
        case SourceEnd::neverRecorded:
            return "never recorded";
        case SourceEnd::pending:
            return "no answer";
        case SourceEnd::brokenOff:
            return service::StatusName(query.status) + " after " + std::to_string(query.rows) +
                   (query.rows == 1 ? " row" : " rows");
        case SourceEnd::refusedAtConnection:
        case SourceEnd::refusedAtSubmission:
        case SourceEnd::unknownClass:
        case SourceEnd::timedOut:
            break;
    }
    return service::StatusName(query.status);
}

std::string SourceLine(const service::SourceQuery& query) {
    return query.nameSpace + (query.className.empty() ? "" : " ") + query.className + ": " +
           EndText(query) + ": " + std::string(LossWithout(query.nameSpace, query.className));
}

std::string UnreadLines(const std::vector<service::SourceQuery>& queries, std::string_view prefix) {
    std::string lines;
    for (const service::SourceQuery& query : UnreadSources(queries)) {
        lines.append(prefix).append(SourceLine(query)) += '\n';
    }
    return lines;
}

Failure TimeoutFailure(std::string unread, unsigned seconds) {
    return {"ended after " + std::to_string(seconds) + (seconds == 1 ? " second" : " seconds"),
            incomplete, std::move(unread)};
}

}  // namespace qv::tool
