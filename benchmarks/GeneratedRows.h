#pragma once

#include <memory>
#include <string>

#include "platform/Row.h"

namespace qv::benchmarks {

// The source rows of a generated host. Each has about as many properties as a real host's row, and
// reading one costs little more than copying its value. The IDs contain the object's number in a
// fixed width, so that no ID is a prefix of another.

using GeneratedRow = std::shared_ptr<const platform::Row>;

std::string ControllerId(int number);
std::string ChannelId(int number);
std::string DiskId(int number);

/// Returns the path of an object with the key DeviceID after the namespace, backslashes doubled.
std::string RelativePath(const std::string& className, const std::string& deviceId);

/// A Win32_DiskDrive row of interface type "IDE".
GeneratedRow DiskRow(int number);
/// The Win32_PhysicalMedia row of that disk.
GeneratedRow MediaRow(int number);
/// A Win32_IDEController row, a port controller or a channel by its ID.
GeneratedRow ControllerRow(const std::string& deviceId);
/// A Win32_IDEControllerDevice row: the device is attached to the controller.
GeneratedRow ControllerLinkRow(const std::string& controllerId, const std::string& deviceId);
/// A Win32_DiskPartition row.
GeneratedRow PartitionRow(int diskNumber, int partitionNumber);
/// The Win32_DiskDriveToDiskPartition row of that partition.
GeneratedRow PartitionLinkRow(int diskNumber, int partitionNumber);
/// The Win32_PnPEntity row of a device.
GeneratedRow DeviceRow(const std::string& deviceId);
/// A Win32_SystemDriver row.
GeneratedRow DriverRow(const std::string& name);
/// A QV_SATADiskDrive row as the management service delivers it.
GeneratedRow PublishedDiskRow(int number);

}  // namespace qv::benchmarks
