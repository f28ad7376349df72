#pragma once

#include <string>

namespace qv {

/// The default log folder, the Windows directory followed by "\system32\wbem\logs\"; empty if the
/// Windows directory is unknown.
std::wstring DefaultLogFolder();

}  // namespace qv
