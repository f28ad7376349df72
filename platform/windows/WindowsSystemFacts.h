#pragma once

#include "platform/SystemFacts.h"

namespace qv::windows {

/// The system's facts from the operating system.
class WindowsSystemFacts : public platform::SystemFacts {
public:
    platform::OsVersion Version() const override;

    /// Leaves out an address that the system cannot convert to text. Enumerates the adapters twice:
    /// for the size of the result, and for the result.
    Status NetworkAddresses(std::vector<std::string>& addresses) const override;

    Status NewGuid(std::string& guid) const override;
};

}  // namespace qv::windows
