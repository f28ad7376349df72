#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Maps the operating system's status text (the `Status` of Win32_DiskDrive and
/// Win32_IDEController) to a CIM OperationalStatus code. Appends the text itself to
/// `descriptions` and the code, in decimal, to `codes`, and returns the code. A text outside the
/// table gives 0 and, on purpose, no element of `codes`.
std::int32_t MapStatusToOperationalStatus(std::string_view status, std::vector<std::string>& codes,
                                          std::vector<std::string>& descriptions);

}  // namespace qv
