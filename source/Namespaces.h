#pragma once

#include <string_view>

namespace qv {

// The namespaces of the management service.

/// The operating system's description of the host.
inline constexpr std::string_view cimNamespace = R"(root\CIMv2)";
/// The operating system's drivers.
inline constexpr std::string_view wmiNamespace = R"(root\wmi)";
/// The provider's own namespace, in which other providers of the family publish too.
inline constexpr std::string_view providerNamespace = R"(root\QVQ)";

}  // namespace qv
