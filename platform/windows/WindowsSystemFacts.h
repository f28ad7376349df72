#pragma once

#include "platform/SystemFacts.h"

namespace qv::windows {

/// The system's facts from the operating system.
class WindowsSystemFacts : public platform::SystemFacts {
public:
    platform::OsVersion Version() const override;

    /// An address that the system cannot write as text is left out. The adapters are enumerated
    /// twice: for the size of the answer, and for the answer.
    Status NetworkAddresses(std::vector<std::string>& addresses) const override;

    Status NewGuid(std::string& guid) const override;
};

}  // namespace qv::windows
