#include "qvsata/session/SourceUses.h"

#include <array>
#include <cstdio>
#include <map>
#include <optional>

#include "catalogue/Classes.h"
#include "qvsata/cim/StatusCodes.h"
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

std::string RowsText(const SourceUse& use) {
    return use.IsRead() ? std::to_string(use.rows) : "-";
}

std::string MillisecondsText(const SourceUse& use) {
    if (use.queries == 0) {
        return "-";
    }
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", static_cast<double>(use.time.count()) / 1000.0);
    return text.data();
}

std::string StatusText(const SourceUse& use) {
    if (use.queries == 0) {
        return "not asked";
    }
    const std::string end = EndText(use.worst);
    const std::string_view meaning = service::StatusMeaning(use.worst.status);
    const bool isMeant = !WasRead(use.worst) && use.worst.end != service::SourceEnd::neverRecorded;
    return !isMeant || meaning.empty() ? end : end + ", " + std::string(meaning);
}

void QuerySources(const service::ProviderHost& host) {
    std::optional<CommandError> first;
    for (const PublishedClass& published : PublishedClasses()) {
        try {
            Take(host.Published().Enumerate(published.name));
        } catch (const CommandError& error) {
            first = first.value_or(error);
        }
    }
    if (const service::Connection monitored = host.Machine()(wmiNamespace); monitored.services) {
        monitored.services->Query("SELECT * FROM MSStorageDriver_FailurePredictStatus");
    }
    if (first) {
        throw CommandError(*first);
    }
}

std::vector<SourceUse> SourceUsesOf(const service::ProviderHost& host) {
    const std::vector<service::SourceQuery> queries = host.Journal().Queries();
    std::vector<SourceUse> uses;
    for (const SourceClass& source : SourceClasses()) {
        if (!source.name.empty()) {
            uses.push_back(UseOf(source, queries));
        }
    }
    return uses;
}

std::vector<SourceUse> ReadSourceUses(const service::ProviderHost& host) {
    QuerySources(host);
    return SourceUsesOf(host);
}

}  // namespace qv::tool
