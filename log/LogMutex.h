#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/windows/Handle.h"

namespace qv {

/// The name of the mutex that guards the log file of a module in a folder: "Global\" and the
/// upper-cased text of both without its backslashes.
std::wstring LogMutexName(std::wstring_view folder, std::wstring_view module);

/// Creates the mutex, or opens the one of that name. Guests are denied; the system, administrators
/// and the network service have all access. Gives 0 or the system error code.
std::uint32_t CreateLogMutex(const std::wstring& name, windows::KernelHandle& mutex);

}  // namespace qv
