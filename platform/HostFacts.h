#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qv::platform {

/// The formats of GetComputerNameExW in which a host's name is read.
enum class NameFormat { dnsFullyQualified, dnsHostname, netBios };

/// A host name, or the system error code (winerror.h) of the failure.
struct ComputerName {
    std::uint32_t error = 0;
    std::wstring name;
};

/// Facts of the host that the operating system reports without a management query.
class HostFacts {
public:
    virtual ~HostFacts() = default;

    /// Returns the computer's name in one format. Errors: the system's own, and 8 (not enough
    /// memory) if memory runs out for the name.
    virtual ComputerName NameInFormat(NameFormat format) const = 0;

    /// Returns the text in the encoding of source rows and records: the system's ANSI code page
    /// (UTF-8 on a native build). A character that the code page lacks becomes its replacement
    /// character.
    virtual std::string ToNarrow(std::wstring_view text) const = 0;
};

}  // namespace qv::platform
