#pragma once

#include <windows.h>

#include <vector>

#include "qvsata/doctor/Facts.h"

namespace qv::doctor {

/// Returns what a security descriptor allows whom. A descriptor without a list allows everyone
/// everything.
std::vector<Right> AllowedRights(PSECURITY_DESCRIPTOR descriptor);

/// Returns what the security descriptor of a folder allows.
Fact<std::vector<Right>> RightsOnFolder(const std::wstring& folder);

}  // namespace qv::doctor
