#include "benchmarks/GeneratedHost.h"

#include "benchmarks/GeneratedRows.h"

namespace qv::benchmarks {
namespace {

constexpr int partitionsPerDisk = 2;

// Returns the query for rows by an object with which they are associated.
std::string AssociatorsQuery(const std::string& relativePath, const std::string& association) {
    return "ASSOCIATORS OF {" + relativePath + "} where assocclass=" + association;
}

}  // namespace

GeneratedHost::GeneratedHost(int disks) {
    platform::Rows& diskRows = RowsOf("SELECT * FROM Win32_DiskDrive");
    platform::Rows& mediaRows = RowsOf("SELECT * FROM Win32_PhysicalMedia");
    platform::Rows& linkRows = RowsOf("SELECT * FROM Win32_DiskDriveToDiskPartition");
    platform::Rows& partitionRows = RowsOf("SELECT * FROM Win32_DiskPartition");
    platform::Rows& publishedRows = RowsOf("SELECT * FROM QV_SATADiskDrive");
    for (int number = 0; number < disks; ++number) {
        diskRows.push_back(DiskRow(number));
        mediaRows.push_back(MediaRow(number));
        publishedRows.push_back(PublishedDiskRow(number));
        for (int partition = 0; partition < partitionsPerDisk; ++partition) {
            partitionRows.push_back(PartitionRow(number, partition));
            linkRows.push_back(PartitionLinkRow(number, partition));
        }
        AddController(ControllerId(number), "msahci");
        AddController(ChannelId(number), "atapi");
        Attach(ControllerId(number), ChannelId(number));
        Attach(ChannelId(number), DiskId(number));
    }
}

void GeneratedHost::AddController(const std::string& deviceId, const std::string& driver) {
    RowsOf("SELECT * FROM Win32_IDEController").push_back(ControllerRow(deviceId));
    RowsOf(AssociatorsQuery(RelativePath("Win32_IDEController", deviceId), "Win32_PnPDevice")) = {
        DeviceRow(deviceId)};
    RowsOf(AssociatorsQuery(RelativePath("Win32_PnPEntity", deviceId),
                            "Win32_SystemDriverPNPEntity")) = {DriverRow(driver)};
}

void GeneratedHost::Attach(const std::string& controllerId, const std::string& deviceId) {
    RowsOf("SELECT * FROM Win32_IDEControllerDevice")
        .push_back(ControllerLinkRow(controllerId, deviceId));
}

}  // namespace qv::benchmarks
