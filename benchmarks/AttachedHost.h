#pragma once

#include "benchmarks/MemoryHost.h"

namespace qv::benchmarks {

/// A host in memory with a number of IDE disks, each on a channel of its own, and a controller for
/// every four channels. Its rows hold only what the endpoints of associations need, so that the
/// cost of the pairing shows.
class AttachedHost : public MemoryHost {
public:
    explicit AttachedHost(int disks);
};

}  // namespace qv::benchmarks
