#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv::benchmarks {

/// A host in memory with a number of IDE disks, a media row for each, and as many port controllers.
/// Its rows have about as many properties as those of a real host, and reading one costs little
/// more than copying its value: what a builder adds to the reads shows.
class GeneratedHost : public platform::QueryPort, public platform::HostFacts {
public:
    explicit GeneratedHost(int disks);

    platform::QueryResult RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                      platform::Rows& rows) const override;
    platform::ComputerName NameInFormat(platform::NameFormat format) const override;

private:
    std::map<std::string, platform::Rows, std::less<>> rowsOfQuery_;
};

}  // namespace qv::benchmarks
