#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvsata/service/SourceJournal.h"
#include "qvsata/session/Failure.h"
#include "source/Namespaces.h"

namespace qv::tool {

/// A class that the provider reads, or with an empty name a namespace of such classes, and what is
/// lost without it.
struct SourceClass {
    std::string_view nameSpace;
    std::string_view name;
    std::string_view loss;
};

/// Returns the classes that the provider reads, those of the disks first.
const std::vector<SourceClass>& SourceClasses();

/// Returns what is lost without a class; without the whole namespace if `className` is empty.
std::string_view LossWithout(std::string_view nameSpace, std::string_view className);

/// Returns the queries that did not read their source, the first of each class and end.
std::vector<service::SourceQuery> UnreadSources(const std::vector<service::SourceQuery>& queries);

/// Returns whether the instances of a class could not be read.
bool IsUnread(const std::vector<service::SourceQuery>& queries, std::string_view nameSpace,
              std::string_view className);

/// Returns how a query ended: "WBEM_E_ACCESS_DENIED (0x80041003)", "never recorded", "OK".
std::string EndText(const service::SourceQuery& query);

/// Returns a line on a source that could not be read: "root\CIMv2 Win32_DiskDrive:
/// WBEM_E_ACCESS_DENIED (0x80041003): disks and what belongs to them cannot be published".
std::string SourceLine(const service::SourceQuery& query);

/// Returns the lines on all sources that could not be read, each after `prefix`; empty if every
/// source was read.
std::string UnreadLines(const std::vector<service::SourceQuery>& queries,
                        std::string_view prefix = {});

/// Returns the failure of a command that is ended after so many seconds. Its details are the
/// sources that could not be read or have not answered (see UnreadLines).
Failure TimeoutFailure(std::string unread, unsigned seconds);

}  // namespace qv::tool
