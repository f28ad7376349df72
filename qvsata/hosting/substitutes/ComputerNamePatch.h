#pragma once

#include <windows.h>

#include "qvsata/hosting/substitutes/ImportPatch.h"
#include "qvsata/recorded/RecordedHost.h"

namespace qv::service {

/// Makes a loaded module see the recorded names of a computer when it asks GetComputerNameExW, from
/// construction to destruction. A name that was not recorded fails with ERROR_INVALID_COMPUTERNAME.
/// One at a time in a process.
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
