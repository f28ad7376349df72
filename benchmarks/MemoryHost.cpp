#include "benchmarks/MemoryHost.h"

namespace qv::benchmarks {

Status MemoryHost::RunWqlQuery(std::string_view, std::string_view query,
                               platform::Rows& rows) const {
    rows.clear();
    const auto found = rowsOfQuery_.find(query);
    if (found == rowsOfQuery_.end()) {
        return Status::failed;
    }
    rows = found->second;
    return Status::noError;
}

platform::ComputerName MemoryHost::NameInFormat(platform::NameFormat) const {
    return {0, L"srv01.example.org"};
}

std::string MemoryHost::ToNarrow(std::wstring_view ascii) const {
    return {ascii.begin(), ascii.end()};
}

}  // namespace qv::benchmarks
