#pragma once

#include <string>

#include "benchmarks/MemoryHost.h"

namespace qv::benchmarks {

/// A host in memory with a number of IDE disks. Each disk has a media row, two partitions and a
/// channel of its own, each channel a port controller of its own, and each of these two a driver.
/// Reads are cheap, so that the builder's own cost shows.
class GeneratedHost : public MemoryHost {
public:
    explicit GeneratedHost(int disks);

private:
    void AddController(const std::string& deviceId, const std::string& driver);
    void Attach(const std::string& controllerId, const std::string& deviceId);
};

}  // namespace qv::benchmarks
