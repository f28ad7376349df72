#pragma once

#include <windows.h>

#include <vector>

#include "qvsata/doctor/Facts.h"

namespace qv::doctor {

/// Returns what a security descriptor allows whom. A descriptor without a list allows everyone
/// everything.
std::vector<Right> AllowedRights(PSECURITY_DESCRIPTOR descriptor);

/// Returns what the security descriptor of a file or folder allows; the owner is the last one.
Fact<std::vector<Right>> RightsOn(const std::wstring& path);

}  // namespace qv::doctor
