#pragma once

#include <string>
#include <string_view>

#include "platform/Row.h"

namespace qv {

// The rules that decide what is published of the source rows, and which row belongs to which.

/// Whether a Win32_DiskDrive row is published: its InterfaceType is exactly "IDE". The operating
/// system reports SATA disks with this type.
bool IsIdeDisk(const platform::Row& disk);

/// Whether the DeviceID of a Win32_IDEController row is that of a port controller: a PCI device
/// with a revision.
bool IsPortController(std::string_view deviceId);

/// The revision in a PCI device ID: what follows "REV_" up to the next backslash or the end (02 of
/// PCI\VEN_8086&DEV_2922&REV_02\3&1AB2); empty without "&REV_".
std::string_view RevisionOf(std::string_view deviceId);

/// The first Win32_PhysicalMedia row whose Tag is exactly the DeviceID of the Win32_DiskDrive row,
/// or null. A disk without a text DeviceID that is compared with a media row ends the request with
/// Status::unspecifiedFailure.
const platform::Row* FindMediaOfDisk(const platform::Row& disk, const platform::Rows& media);

}  // namespace qv
