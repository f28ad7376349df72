#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qv::platform {

/// The formats of GetComputerNameExW in which a host's name is asked for.
enum class NameFormat { dnsFullyQualified, dnsHostname, netBios };

/// A host name, or the system error code (winerror.h) with which the system refused it.
struct ComputerName {
    std::uint32_t error = 0;
    std::wstring name;
};

/// What the operating system says of the host without a management query.
class HostFacts {
public:
    virtual ~HostFacts() = default;

    /// The computer's name in one format. Errors: the system's own, and 8 (not enough memory) when
    /// there was no room for the name.
    virtual ComputerName NameInFormat(NameFormat format) const = 0;

    /// The text as the narrow text of source rows and records is encoded: in the system's ANSI code
    /// page (UTF-8 on a native build). A character that it lacks becomes its replacement character.
    virtual std::string ToNarrow(std::wstring_view text) const = 0;
};

}  // namespace qv::platform
