#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv::benchmarks {

/// A host in memory with a number of IDE disks. Each disk has a media row, two partitions and a
/// channel of its own, each channel a port controller of its own, and each of these two a driver.
/// An answer costs little more than a look-up: what a builder adds to the reads shows.
class GeneratedHost : public platform::QueryPort, public platform::HostFacts {
public:
    explicit GeneratedHost(int disks);

    platform::QueryResult RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                      platform::Rows& rows) const override;
    platform::ComputerName NameInFormat(platform::NameFormat format) const override;

private:
    void AddController(const std::string& deviceId, const std::string& driver);
    void Attach(const std::string& controllerId, const std::string& deviceId);

    std::map<std::string, platform::Rows, std::less<>> rowsOfQuery_;
};

}  // namespace qv::benchmarks
