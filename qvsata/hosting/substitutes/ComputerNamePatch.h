#pragma once

#include <windows.h>

#include "qvsata/hosting/substitutes/ImportPatch.h"
#include "qvsata/recorded/RecordedHost.h"

namespace qv::service {

/// Makes GetComputerNameExW return a recorded computer's names to a loaded module, from
/// construction to destruction. A name that was not recorded fails with ERROR_INVALID_COMPUTERNAME.
/// At most one object per process.
class ComputerNamePatch {
public:
    ComputerNamePatch(HMODULE module, const ComputerNames& names);
    ComputerNamePatch(const ComputerNamePatch&) = delete;
    ComputerNamePatch& operator=(const ComputerNamePatch&) = delete;
    ~ComputerNamePatch();

private:
    ImportPatch patch_;
};

}  // namespace qv::service
