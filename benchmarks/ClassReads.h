#pragma once

#include <span>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv::benchmarks {

/// A published class and the minimal reads of its builder: its queries, the property reads of the
/// rows, the host name. The builder's cost is compared with theirs.
struct ClassReads {
    std::string_view className;
    void (*read)(const platform::QueryPort& queries, const platform::HostFacts& host);
};

/// Returns the measured classes.
std::span<const ClassReads> MeasuredClasses();

}  // namespace qv::benchmarks
