#pragma once

#include "qvsata/service/ProviderHost.h"
#include "qvsata/view/OsDisk.h"

namespace qv::tool {

/// Reads all disks of the operating system (Win32_DiskDrive), by drive number, by the rules that
/// decide what the provider publishes. A source that cannot be read is in the host's journal.
view::OsDisks ReadOsDisks(const service::ProviderHost& host);

}  // namespace qv::tool
