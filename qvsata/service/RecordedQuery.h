#pragma once

#include <string_view>

#include "qvsata/service/RecordedHost.h"
#include "qvsata/service/RecordedNamespace.h"
#include "qvsata/service/Wql.h"

namespace qv::service {

/// Answers a query from a namespace of a host, as RecordedHost::RunQuery describes it. `spelling`
/// is the namespace as the connection wrote it.
QueryAnswer RunRecordedQuery(const RecordedHost& host, const RecordedNamespace& nameSpace,
                             std::string_view spelling, const WqlQuery& query);

}  // namespace qv::service
