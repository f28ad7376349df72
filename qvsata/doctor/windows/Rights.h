#pragma once

#include <windows.h>

#include <vector>

#include "qvsata/doctor/Facts.h"

namespace qv::doctor {

/// Returns what a security descriptor allows and denies whom. A descriptor without a list allows
/// everyone everything.
std::vector<Right> EntriesOf(PSECURITY_DESCRIPTOR descriptor);

/// Returns what the security descriptor of a file or folder allows and denies; the owner is last.
Fact<std::vector<Right>> RightsOn(const std::wstring& path);

}  // namespace qv::doctor
