#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv::benchmarks {

/// A host in memory: each query's rows are stored under its text, so that an answer costs little
/// more than a look-up. Other queries fail. The host's name is "srv01.example.org".
class MemoryHost : public platform::QueryPort, public platform::HostFacts {
public:
    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override;
    platform::ComputerName NameInFormat(platform::NameFormat format) const override;
    std::string ToNarrow(std::wstring_view ascii) const override;

protected:
    /// Returns the rows of a query, empty at first.
    platform::Rows& RowsOf(const std::string& query) { return rowsOfQuery_[query]; }

private:
    std::map<std::string, platform::Rows, std::less<>> rowsOfQuery_;
};

}  // namespace qv::benchmarks
