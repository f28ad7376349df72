#pragma once

#include <windows.h>

#include "qvsata/service/RecordedHost.h"
#include "qvsata/service/com/ImportPatch.h"

namespace qv::service {

/// Makes a loaded module see the recorded names of a computer when it asks GetComputerNameExW, from
/// construction to destruction. A name that was not recorded fails with ERROR_INVALID_COMPUTERNAME.
/// One at a time in a process.
class RecordedNames {
public:
    RecordedNames(HMODULE module, const ComputerNames& names);
    RecordedNames(const RecordedNames&) = delete;
    RecordedNames& operator=(const RecordedNames&) = delete;
    ~RecordedNames();

private:
    ImportPatch patch_;
};

}  // namespace qv::service
