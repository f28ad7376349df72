#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"

namespace qv {

/// The class of the host computer system; every scoped instance names it in
/// SystemCreationClassName.
std::string_view GetComputerSystemClassName();

/// The host's name: the fully qualified DNS name, else the DNS host name, else the NetBIOS name.
/// Returns 0, or the system error code of the last attempt and leaves `name` as it was.
std::uint32_t GetHostName(const platform::HostFacts& host, std::wstring& name);

/// The host's name as records hold it, in narrow text; nothing when the system gives none.
std::optional<std::string> HostName(const platform::HostFacts& host);

/// The text \\server\namespace:class, with the server that the definition of the computer system
/// class in root\QVQ names (its __SERVER). Without that definition the server is empty, so that
/// the text begins with three backslashes.
std::wstring BuildNamespacePrefix(const platform::QueryPort& queries, std::wstring_view nameSpace,
                                  std::wstring_view className);

/// The full object path of the host computer system, from the __PATH of its class definition in
/// root\QVQ and the host name. Returns the status of the look-up when that fails, Status::failed
/// when there is not exactly one definition or no host name; `path` then stays as it was.
Status BuildComputerSystemPath(const platform::QueryPort& queries, const platform::HostFacts& host,
                               std::wstring& path);

}  // namespace qv
