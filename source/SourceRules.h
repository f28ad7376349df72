#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Row.h"
#include "source/KeyTable.h"

namespace qv {

// The rules that decide which source rows are published, and which row belongs to which.

/// Returns whether a Win32_DiskDrive row is published: its InterfaceType is exactly "IDE". The
/// operating system reports SATA disks with this type.
bool IsIdeDisk(const platform::Row& disk);

/// Returns whether the DeviceID of a Win32_IDEController row is that of a port controller: a PCI
/// device with a revision.
bool IsPortController(std::string_view deviceId);

/// Returns whether the PNPDeviceID of a Win32_IDEController row is that of a channel, which is
/// published as a logical port.
bool IsChannel(std::string_view pnpDeviceId);

/// Returns whether a Win32_IDEController row with this DeviceID is published as an initiator
/// endpoint: a channel that is not a port controller.
bool IsInitiator(std::string_view deviceId);

/// The kinds of controllers that have software identities.
enum class ControllerFamily { nativeSata, pciIde, atapi };

/// Returns the family of a controller by the Name of the Win32_SystemDriver that serves it,
/// case-sensitively; nothing for any other driver.
std::optional<ControllerFamily> FamilyOfDriver(std::string_view driverName);

/// Returns the names that have a family, in the order of the families.
std::vector<std::string_view> DriversWithFamily();

/// Returns the revision in a PCI device ID: the text after "REV_" up to the next backslash or the
/// end (02 of PCI\VEN_8086&DEV_2922&REV_02\3&1AB2); empty without "&REV_".
std::string_view RevisionOf(std::string_view deviceId);

/// Returns the text between the first ampersand of a device ID and the next, or the end (DEV_2922
/// of PCI\VEN_8086&DEV_2922&REV_02\3&1AB2); the whole ID if it has no ampersand.
std::string_view FirstSegmentOf(std::string_view deviceId);

/// Returns the device number in a PCI device ID: the text after the first underscore of
/// FirstSegmentOf (2922 of PCI\VEN_8086&DEV_2922&REV_02\3&1AB2), whatever the segment is.
std::string_view DeviceNumberOf(std::string_view deviceId);

/// Returns the label of a channel: its ID from "IDECHANNEL" on, with " with ID: " for the first
/// backslash (IDECHANNEL with ID: 4&2E6E9E8&0&0 of PCIIDE\IDECHANNEL\4&2E6E9E8&0&0). IsChannel must
/// hold for the ID.
std::string ChannelLabel(std::string_view channelId);

/// Returns whether a Win32_DiskDrive row can be compared with media rows: its DeviceID is a text.
bool IsComparableWithMedia(const platform::Row& disk);

/// Throws RequestError with Status::unspecifiedFailure if IsComparableWithMedia does not hold.
void RequireComparableWithMedia(const platform::Row& disk);

/// Returns the first Win32_PhysicalMedia row whose Tag is exactly the DeviceID of the
/// Win32_DiskDrive row; null if there is none. Throws RequestError with Status::unspecifiedFailure
/// if a media row is compared with a disk for which IsComparableWithMedia does not hold.
const platform::Row* FindMediaOfDisk(const platform::Row& disk, const platform::Rows& media);

/// Finds the media row of each of many disks, as FindMediaOfDisk does, but ends no request.
class MediaOfDisks {
public:
    /// The media rows must outlive the object.
    explicit MediaOfDisks(const platform::Rows& media);

    /// Returns the media row of a disk; null if it has none or IsComparableWithMedia does not hold.
    const platform::Row* Of(const platform::Row& disk) const;

private:
    std::unordered_map<std::string, const platform::Row*> byTag_;
};

/// Returns whether a MSStorageDriver_FailurePredictStatus row belongs to a disk: the row's
/// InstanceName, which is the device and a suffix, contains the disk's PNPDeviceID. Both are in
/// upper case. An empty ID is part of every name, on purpose.
bool IsPredictionOf(std::string_view instanceName, std::string_view pnpDeviceId);

/// IsPredictionOf for many disks.
class PredictedDisks {
public:
    /// @param pnpDeviceIds those of the disks, in any case
    explicit PredictedDisks(std::vector<std::string> pnpDeviceIds);

    /// Returns the positions of the disks to which a failure-prediction row belongs, in ascending
    /// order.
    KeyTable::Places Of(const platform::Row& prediction) const;

private:
    KeyTable upperIds_;
};

/// Finds the Win32_IDEController row that the Antecedent of a Win32_IDEControllerDevice row names:
/// the first whose __PATH equals it, ignoring case.
class ControllerPaths {
public:
    /// The controller rows must outlive the object.
    explicit ControllerPaths(const platform::Rows& controllers);

    /// Returns the controller that a link names; null if there is none.
    const platform::Row* NamedBy(const platform::Row& link) const;

private:
    std::unordered_map<std::string, const platform::Row*> byPath_;
};

/// The form in which ControllerLinks compares the PNPDeviceID of a disk: without backslashes and in
/// lower case.
std::string ComparedDiskId(std::string_view pnpDeviceId);

/// The form in which ControllerLinks compares the __PATH of a channel: from ".DeviceID=" on;
/// nothing without it.
std::optional<std::string> ComparedChannelPath(std::string_view path);

/// The Dependent of a Win32_IDEControllerDevice row, in the forms in which a disk and a channel are
/// compared with it.
struct AttachedDevice {
    std::string diskId;
    std::string channelPath;
};

/// Returns the device that a link names; nothing if its Dependent has no ".DeviceID=".
std::optional<AttachedDevice> DeviceNamedBy(const platform::Row& link);

/// Finds the Win32_IDEController row to which a device is attached, by the
/// Win32_IDEControllerDevice rows that name the device as Dependent and a controller as Antecedent
/// (ControllerPaths). Of several links of a device the last one that names a controller counts.
class ControllerLinks {
public:
    /// The controller rows must outlive the object.
    ControllerLinks(const platform::Rows& links, const platform::Rows& controllers);

    /// Returns the controller or channel of a disk; null if there is none. The key value in the
    /// Dependent and the disk's PNPDeviceID are compared without backslashes and ignoring case.
    const platform::Row* ControllerOfDisk(std::string_view pnpDeviceId) const;

    /// Returns the controller of the channel with this __PATH; null if there is none. The Dependent
    /// and the path are compared exactly, from ".DeviceID=" on, so their classes do not matter.
    const platform::Row* ControllerOfChannel(std::string_view path) const;

private:
    using ControllerByKey = std::unordered_map<std::string, const platform::Row*>;

    ControllerByKey byDiskId_;
    ControllerByKey byChannelPath_;
};

/// What a Win32_DiskDriveToDiskPartition row joins.
struct JoinedPartition {
    std::size_t partition = 0;  ///< its position
    KeyTable::Places disks;     ///< their positions, in ascending order
};

/// Finds what Win32_DiskDriveToDiskPartition rows join: the first partition whose DeviceID the
/// Dependent contains with all disks whose DeviceID the Antecedent contains (both without
/// backslashes). An ID also matches if it is the beginning of another (drive 1 and drive 10), on
/// purpose.
class PartitionNames {
public:
    PartitionNames(const platform::Rows& disks, const platform::Rows& partitions);

    /// Returns nothing for a link that names no partition.
    std::optional<JoinedPartition> JoinedBy(const platform::Row& link) const;

    /// Returns the positions of the disks with this DeviceID, compared without backslashes.
    KeyTable::Places DisksWithId(std::string_view deviceId) const;

private:
    KeyTable diskIds_;  ///< without backslashes
    KeyTable partitionIds_;
};

/// Finds the Win32_DiskPartition rows of a disk by the Win32_DiskDriveToDiskPartition rows.
class PartitionLinks {
public:
    /// `disks` are the Win32_DiskDrive rows that PartitionsOfDisk knows. The partition rows must
    /// outlive the object.
    PartitionLinks(const platform::Rows& disks, const platform::Rows& links,
                   const platform::Rows& partitions);

    /// Returns the partitions of the disk with this DeviceID, in the order of the links that join
    /// it with them (PartitionNames); none for an unknown DeviceID.
    std::vector<const platform::Row*> PartitionsOfDisk(std::string_view deviceId) const;

private:
    PartitionNames names_;
    std::vector<std::vector<const platform::Row*>> partitionsOfDisk_;  ///< by position
};

}  // namespace qv
