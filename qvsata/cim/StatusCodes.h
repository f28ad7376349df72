#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Status.h"

namespace qv::service {

/// Status codes of the management service (wbemcli.h) that clients meet, beyond those that the
/// provider uses (platform/Status.h).
namespace status {
inline constexpr Status accessDenied{0x80041003};
inline constexpr Status providerFailure{0x80041004};
inline constexpr Status typeMismatch{0x80041005};
inline constexpr Status noMemory{0x80041006};
inline constexpr Status invalidParameter{0x80041008};
inline constexpr Status notSupported{0x8004100C};
inline constexpr Status invalidNamespace{0x8004100E};
inline constexpr Status invalidClass{0x80041010};
inline constexpr Status invalidQuery{0x80041017};
inline constexpr Status alreadyExists{0x80041019};
inline constexpr Status readOnly{0x80041023};
inline constexpr Status providerNotCapable{0x80041024};
inline constexpr Status providerLoadFailure{0x80041013};
inline constexpr Status transportFailure{0x80041015};
inline constexpr Status shuttingDown{0x80041033};
inline constexpr Status invalidObjectPath{0x8004103A};
inline constexpr Status bufferTooSmall{0x8004103C};
inline constexpr Status timedOut{0x80041069};
inline constexpr Status quotaViolation{0x8004106C};
}  // namespace status

/// Returns the meaning of a status and its number, "access denied (0x80041003)", or only the number
/// if the code has no text here.
std::string StatusText(Status code);

/// Returns the symbolic name of a status and its number, "WBEM_E_ACCESS_DENIED (0x80041003)", or
/// only the number if the code has no name here.
std::string StatusName(Status code);

/// Returns the symbolic name of a status, or its number if the code has no name here:
/// "WBEM_E_ACCESS_DENIED", "0x80070002".
std::string StatusSymbol(Status code);

/// Returns the meaning of a status, "access denied"; empty if the code has no text here.
std::string_view StatusMeaning(Status code);

/// Returns the failure with a symbolic name ("WBEM_E_ACCESS_DENIED") or a number of eight digits
/// ("0x80041003"); nothing for any other text.
std::optional<Status> StatusOfName(std::string_view symbol);

}  // namespace qv::service
