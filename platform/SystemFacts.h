#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Status.h"

namespace qv::platform {

/// The actual version of the operating system, not one that it reports for compatibility.
struct OsVersion {
    std::uint32_t majorNumber = 0;
    std::uint32_t minorNumber = 0;
    std::uint32_t build = 0;
};

/// Facts of the system that an alert repeats. Several threads may call it at once.
class SystemFacts {
public:
    virtual ~SystemFacts() = default;

    virtual OsVersion Version() const = 0;

    /// Replaces `addresses` with the unicast addresses of all network adapters, as text; the list
    /// may be empty. Returns Status::failed if the adapters cannot be enumerated.
    virtual Status NetworkAddresses(std::vector<std::string>& addresses) const = 0;

    /// Sets `guid` to a new identifier in text form, "{...}"; returns the system's failure if it
    /// cannot create one.
    virtual Status NewGuid(std::string& guid) const = 0;
};

}  // namespace qv::platform
