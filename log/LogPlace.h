#pragma once

#include <string>

namespace qv {

/// The folder of every log that is not configured elsewhere: the Windows directory followed by
/// "\system32\wbem\logs\". Empty when the system does not tell its directory.
std::wstring DefaultLogFolder();

}  // namespace qv
