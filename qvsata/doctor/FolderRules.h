#pragma once

#include "qvsata/doctor/Facts.h"
#include "qvsata/doctor/Finding.h"

namespace qv::doctor {

// Whoever can change the library, or what stands at its path, runs code as the system.

/// Judges the rights on the library's folder.
Finding JudgeLibraryFolder(const GuardedPlace& folder);

/// Judges the rights on a file in that folder. The accounts that host the providers must be able to
/// read the library.
Finding JudgeFileBeside(const GuardedPlace& file, bool isLibrary);

/// Judges the rights on a folder above: who can rename or remove it can put another in its place.
Finding JudgeFolderAbove(const GuardedPlace& folder);

}  // namespace qv::doctor
