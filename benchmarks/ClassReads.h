#pragma once

#include <span>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv::benchmarks {

/// A published class and the reads that its builder cannot do without, done for their own sake:
/// its queries, the property reads of the rows, the host name. Their cost is what the builder's is
/// measured against.
struct ClassReads {
    std::string_view className;
    void (*read)(const platform::QueryPort& queries, const platform::HostFacts& host);
};

/// The classes that are measured.
std::span<const ClassReads> MeasuredClasses();

}  // namespace qv::benchmarks
