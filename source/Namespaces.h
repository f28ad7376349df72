#pragma once

#include <string_view>

namespace qv {

// The namespaces of the management service.

/// Where the operating system describes the host.
inline constexpr std::string_view cimNamespace = R"(root\CIMv2)";
/// Where its drivers do.
inline constexpr std::string_view wmiNamespace = R"(root\wmi)";
/// The provider's own, which other providers of the family publish in too.
inline constexpr std::string_view providerNamespace = R"(root\QVQ)";

}  // namespace qv
