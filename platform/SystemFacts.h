#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Status.h"

namespace qv::platform {

/// The version of the operating system that runs, not of the one that it passes itself off for.
struct OsVersion {
    std::uint32_t majorNumber = 0;
    std::uint32_t minorNumber = 0;
    std::uint32_t build = 0;
};

/// What an alert says of the system that it comes from. Several threads may ask at once.
class SystemFacts {
public:
    virtual ~SystemFacts() = default;

    virtual OsVersion Version() const = 0;

    /// Replaces `addresses` with the unicast addresses of all network adapters, as text; a host
    /// without any has none. Fails with Status::failed when the adapters cannot be enumerated.
    virtual Status NetworkAddresses(std::vector<std::string>& addresses) const = 0;

    /// A new identifier in its text form, "{...}", or the system's failure to make one.
    virtual Status NewGuid(std::string& guid) const = 0;
};

}  // namespace qv::platform
