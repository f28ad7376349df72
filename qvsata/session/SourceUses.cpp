#include "qvsata/session/SourceUses.h"

#include <map>
#include <string>

#include "catalogue/Classes.h"
#include "qvsata/session/Session.h"
#include "source/Namespaces.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

bool IsOf(const service::SourceQuery& query, const SourceClass& source) {
    // Without a connection to the namespace, none of its classes was read.
    return EqualsIgnoringCase(query.nameSpace, source.nameSpace) &&
           (query.className.empty() || EqualsIgnoringCase(query.className, source.name));
}

SourceUse UseOf(const SourceClass& source, const std::vector<service::SourceQuery>& queries) {
    SourceUse use{source, 0, 0, {}, {}};
    std::map<std::string, std::size_t> rowsByText;
    for (const service::SourceQuery& query : queries) {
        if (!IsOf(query, source)) {
            continue;
        }
        use.worst = use.queries == 0 || (WasRead(use.worst) && !WasRead(query)) ? query : use.worst;
        ++use.queries;
        use.time += query.time;
        rowsByText[query.text] = query.rows;
    }
    for (const auto& [text, rows] : rowsByText) {
        use.rows += rows;
    }
    return use;
}

}  // namespace

bool SourceUse::IsRead() const {
    return queries != 0 && WasRead(worst);
}

std::vector<SourceUse> ReadSourceUses(const service::ProviderHost& host) {
    for (const PublishedClass& published : PublishedClasses()) {
        Take(host.Published().Enumerate(published.name));
    }
    if (const service::Connection monitored = host.Machine()(wmiNamespace); monitored.services) {
        monitored.services->Query("SELECT * FROM MSStorageDriver_FailurePredictStatus");
    }
    const std::vector<service::SourceQuery> queries = host.Journal().Queries();
    std::vector<SourceUse> uses;
    for (const SourceClass& source : SourceClasses()) {
        if (!source.name.empty()) {
            uses.push_back(UseOf(source, queries));
        }
    }
    return uses;
}

}  // namespace qv::tool
