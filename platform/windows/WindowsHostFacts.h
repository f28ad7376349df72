#pragma once

#include "platform/HostFacts.h"

namespace qv::windows {

/// The host's facts from the operating system.
class WindowsHostFacts : public platform::HostFacts {
public:
    platform::ComputerName NameInFormat(platform::NameFormat format) const override;
    std::string ToNarrow(std::wstring_view text) const override;
};

}  // namespace qv::windows
