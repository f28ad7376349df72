#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/windows/Handle.h"

namespace qv {

/// Returns the name of the mutex that guards a module's log file in a folder: "Global\" and both
/// texts in upper case without backslashes.
std::wstring LogMutexName(std::wstring_view folder, std::wstring_view module);

/// Creates the mutex, or opens the one of that name. Guests are denied; the system, administrators
/// and the network service have all access. Returns 0 or the system error code.
std::uint32_t CreateLogMutex(const std::wstring& name, windows::KernelHandle& mutex);

}  // namespace qv
