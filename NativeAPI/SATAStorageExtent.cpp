// QV_SATAStorageExtent: one instance per Win32_DiskDrive row of interface type "IDE", keyed like
// the disk, with the figures of its partitions: Win32_DiskPartition rows found through
// Win32_DiskDriveToDiskPartition.
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/Properties.h"
#include "source/HostIdentity.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv {
namespace {

void PutFlag(InstanceRecord& record, std::string_view name, const platform::Row& partition) {
    bool flag = false;
    GetBooleanProperty(partition, name, flag);
    SetProperty(record, name, flag ? "TRUE" : "FALSE", PropertyType::boolean);
}

void LogDescription(platform::LogPort& log, const platform::Row& partition) {
    if (TakesLines(log.Level(), LogLevel::information)) {
        log.Write(LogLevel::information, "NativeAPI::getQV_SATAStorageExtent| Description = " +
                                             TextOrEmpty(partition, "Description"));
    }
}

void PutPartition(InstanceRecord& record, const platform::Row& partition, platform::LogPort& log) {
    PutText(record, "Caption", partition, "Caption");
    PutText(record, "Description", partition, "Description");
    LogDescription(log, partition);
    PutText(record, "Name", partition, "Name");
    PutText(record, "BlockSize", partition, "BlockSize");
    // The count of all blocks, on purpose; there is no NumberOfBlocks.
    PutText(record, "ConsumableBlocks", partition, "NumberOfBlocks");
    PutText(record, "Size", partition, "Size");
    PutFlag(record, "Bootable", partition);
    PutFlag(record, "BootPartition", partition);
    PutFlag(record, "PrimaryPartition", partition);
}

}  // namespace

RecordList NativeAPI::getQV_SATAStorageExtent(const Request& request) const {
    RecordList records;
    const platform::Rows disks = QueryIdeDisks(queries_);
    platform::Rows links;
    platform::Rows partitions;
    if (Succeeded(queries_.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_DiskDriveToDiskPartition",
                                       links))) {
        queries_.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_DiskPartition", partitions);
    }
    const PartitionLinks join = request.WantsAllProperties()
                                    ? PartitionLinks(disks, links, partitions)
                                    : PartitionLinks({}, {}, {});
    const auto hostName = HostName(host_);
    for (const auto& disk : disks) {
        InstanceRecord record(request.className);
        PutSystemName(record, hostName);
        PutCreationClassNames(record);
        SetKeyProperty(record, "DeviceID", EncodeDeviceId(TextOrEmpty(*disk, "PNPDeviceID")));
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutStatus(record, *disk);
            const std::string devicePath = TextOrEmpty(*disk, "DeviceID");
            SetProperty(record, "ElementName", devicePath);
            // Every partition puts its values again, on purpose: the last one's are published.
            for (const platform::Row* partition : join.PartitionsOfDisk(devicePath)) {
                PutPartition(record, *partition, log_);
            }
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
