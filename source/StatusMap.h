#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Maps the operating system's status text (the `Status` of Win32_DiskDrive and
/// Win32_IDEController) to a CIM OperationalStatus code and returns it. Appends the text to
/// `descriptions` and the code, in decimal, to `codes`. For a text outside the table returns 0 and,
/// on purpose, appends nothing to `codes`.
std::int32_t MapStatusToOperationalStatus(std::string_view status, std::vector<std::string>& codes,
                                          std::vector<std::string>& descriptions);

}  // namespace qv
