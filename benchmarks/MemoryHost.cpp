#include "benchmarks/MemoryHost.h"

namespace qv::benchmarks {

platform::QueryResult MemoryHost::RunWqlQuery(std::string_view, std::string_view query,
                                              platform::Rows& rows) const {
    rows.clear();
    const auto found = rowsOfQuery_.find(query);
    if (found == rowsOfQuery_.end()) {
        return platform::QueryResult::failed;
    }
    rows = found->second;
    return platform::QueryResult::submitted;
}

platform::ComputerName MemoryHost::NameInFormat(platform::NameFormat) const {
    return {0, "srv01.example.org"};
}

}  // namespace qv::benchmarks
