#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Row.h"
#include "source/KeyTable.h"

namespace qv {

// The rules that decide what is published of the source rows, and which row belongs to which.

/// Whether a Win32_DiskDrive row is published: its InterfaceType is exactly "IDE". The operating
/// system reports SATA disks with this type.
bool IsIdeDisk(const platform::Row& disk);

/// Whether the DeviceID of a Win32_IDEController row is that of a port controller: a PCI device
/// with a revision.
bool IsPortController(std::string_view deviceId);

/// Whether the PNPDeviceID of a Win32_IDEController row is that of a channel, published as a
/// logical port.
bool IsChannel(std::string_view pnpDeviceId);

/// Whether a Win32_IDEController row with this DeviceID is published as an initiator endpoint: a
/// channel that is no port controller.
bool IsInitiator(std::string_view deviceId);

/// The kinds of controllers that have software identities.
enum class ControllerFamily { nativeSata, pciIde, atapi };

/// The family of a controller by the Name of the Win32_SystemDriver that serves it, letter case
/// included; nothing for any other driver.
std::optional<ControllerFamily> FamilyOfDriver(std::string_view driverName);

/// The revision in a PCI device ID: what follows "REV_" up to the next backslash or the end (02 of
/// PCI\VEN_8086&DEV_2922&REV_02\3&1AB2); empty without "&REV_".
std::string_view RevisionOf(std::string_view deviceId);

/// What stands between the first ampersand of a device ID and the next, or the end (DEV_2922 of
/// PCI\VEN_8086&DEV_2922&REV_02\3&1AB2); the whole ID without an ampersand.
std::string_view FirstSegmentOf(std::string_view deviceId);

/// The device number in a PCI device ID: what follows the first underscore of FirstSegmentOf (2922
/// of PCI\VEN_8086&DEV_2922&REV_02\3&1AB2), whatever that segment says.
std::string_view DeviceNumberOf(std::string_view deviceId);

/// How a channel is called: its ID from "IDECHANNEL" on, " with ID: " for the first backslash
/// (IDECHANNEL with ID: 4&2E6E9E8&0&0 of PCIIDE\IDECHANNEL\4&2E6E9E8&0&0). The ID is one for which
/// IsChannel holds.
std::string ChannelLabel(std::string_view channelId);

/// The first Win32_PhysicalMedia row whose Tag is exactly the DeviceID of the Win32_DiskDrive row,
/// or null. A disk without a text DeviceID that is compared with a media row ends the request with
/// Status::unspecifiedFailure.
const platform::Row* FindMediaOfDisk(const platform::Row& disk, const platform::Rows& media);

/// Which Win32_IDEController row a device is attached to, by the Win32_IDEControllerDevice rows
/// that name the device as Dependent. The Antecedent names the controller: the first row whose
/// __PATH equals it without regard to case. Of several links of a device the last that names a
/// controller counts.
class ControllerLinks {
public:
    /// The controller rows outlive the object.
    ControllerLinks(const platform::Rows& links, const platform::Rows& controllers);

    /// The controller or channel of a disk, or null. The key value in the Dependent and the disk's
    /// PNPDeviceID are compared without backslashes and without regard to case.
    const platform::Row* ControllerOfDisk(std::string_view pnpDeviceId) const;

    /// The controller of a channel with this __PATH, or null. The Dependent and the path are
    /// compared exactly, from ".DeviceID=" on: the class that either names does not count.
    const platform::Row* ControllerOfChannel(std::string_view path) const;

private:
    using ControllerByKey = std::unordered_map<std::string, const platform::Row*>;

    ControllerByKey byDevice_;
    ControllerByKey byPathTail_;
};

/// Which Win32_DiskPartition rows belong to a disk, by the Win32_DiskDriveToDiskPartition rows.
class PartitionLinks {
public:
    /// `disks` are the Win32_DiskDrive rows whose partitions may be asked for. The partition rows
    /// outlive the object.
    PartitionLinks(const platform::Rows& disks, const platform::Rows& links,
                   const platform::Rows& partitions);

    /// The partitions of that of the disks which has this DeviceID, in the order of the links: for
    /// each link whose Antecedent contains the DeviceID, both without backslashes, the first
    /// partition whose DeviceID its Dependent contains. That an ID also matches where it is the
    /// beginning of another (drive 1 and drive 10) is on purpose. None for any other DeviceID.
    std::vector<const platform::Row*> PartitionsOfDisk(std::string_view deviceId) const;

private:
    KeyTable disks_;  ///< DeviceIDs without backslashes
    std::vector<std::vector<const platform::Row*>> partitionsOfDisk_;  ///< by place in disks_
};

}  // namespace qv
