#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv::benchmarks {

/// A host in memory with a number of IDE disks, each on a channel of its own, and a controller for
/// every four channels. Its rows hold only what the endpoints of associations are built from, so
/// that the pairing shows.
class AttachedHost : public platform::QueryPort, public platform::HostFacts {
public:
    explicit AttachedHost(int disks);

    platform::QueryResult RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                      platform::Rows& rows) const override;
    platform::ComputerName NameInFormat(platform::NameFormat format) const override;

private:
    std::map<std::string, platform::Rows, std::less<>> rowsOfQuery_;
};

}  // namespace qv::benchmarks
