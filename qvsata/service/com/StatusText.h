#pragma once

#include <windows.h>

#include <string>

namespace qv::service {

/// What a status means, and its number: "not found (0x80041002)"; the number alone for a status
/// that neither the management service nor the system gives as a rule.
std::string StatusText(HRESULT status);

}  // namespace qv::service
