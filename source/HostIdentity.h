#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv {

/// Returns the class of the host computer system. Every scoped instance names it in
/// SystemCreationClassName.
std::string_view GetComputerSystemClassName();

/// Sets `name` to the host's fully qualified DNS name, else its DNS host name, else its NetBIOS
/// name. Returns 0; on failure returns the system error code of the last attempt and leaves `name`
/// unchanged.
std::uint32_t GetHostName(const platform::HostFacts& host, std::wstring& name);

/// Returns the host's name as narrow text, as records hold it; nothing if the system reports none.
std::optional<std::string> HostName(const platform::HostFacts& host);

/// Returns \\server\namespace:class with the server from the definition of the computer system
/// class in root\QVQ (its __SERVER). Without that definition the server is empty: the text begins
/// with three backslashes.
std::wstring BuildNamespacePrefix(const platform::QueryPort& queries, std::wstring_view nameSpace,
                                  std::wstring_view className);

/// Sets `path` to the full object path of the host computer system, from the __PATH of its class
/// definition in root\QVQ and the host name. Returns the status of a failed look-up, or
/// Status::failed if there is no host name or not exactly one definition; `path` is then unchanged.
Status BuildComputerSystemPath(const platform::QueryPort& queries, const platform::HostFacts& host,
                               std::wstring& path);

}  // namespace qv
