// QV_SATADiskDrive: one instance per Win32_DiskDrive row of interface type "IDE", keyed by the
// encoded plug-and-play device ID; the serial number comes from the disk's Win32_PhysicalMedia row.
#include "NativeAPI/CapabilityMap.h"
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/PhysicalMedia.h"
#include "NativeAPI/Properties.h"
#include "source/HostIdentity.h"
#include "source/PropertyReaders.h"
#include "source/Text.h"

namespace qv {
namespace {

void PutCapabilities(InstanceRecord& record, const platform::Row& disk) {
    std::vector<std::int32_t> capabilities;
    GetIntegerArrayProperty(disk, "Capabilities", capabilities);
    std::vector<std::string> codes;
    std::vector<std::string> descriptions;
    for (const std::int32_t capability : capabilities) {
        codes.push_back(std::to_string(capability));
        descriptions.emplace_back(GetCapabilityDescription(capability));
    }
    SetProperty(record, "Capabilities", JoinList(codes), PropertyType::int32Array);
    SetProperty(record, "CapabilityDescriptions", JoinList(descriptions),
                PropertyType::stringArray);
}

}  // namespace

RecordList NativeAPI::getQV_SATADiskDrive(const Request& request) const {
    RecordList records;
    const auto hostName = HostName(host_);
    for (const auto& disk : QueryIdeDisks(queries_)) {
        InstanceRecord record(request.className);
        SetKeyProperty(record, "DeviceID", EncodeDeviceId(TextOrEmpty(*disk, "PNPDeviceID")));
        PutSystemName(record, hostName);
        PutCreationClassNames(record);
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutText(record, "Caption", *disk, "Caption");
            // The description, on purpose: the source's own name is published as ElementName.
            PutText(record, "Name", *disk, "Description");
            PutText(record, "Description", *disk, "Description");
            PutText(record, "ElementName", *disk, "Name");
            PutStatus(record, *disk);
            PutCapabilities(record, *disk);
            PutText(record, "FirmwareRevision", *disk, "FirmwareRevision");
            PutNumber(record, "Index", *disk, "Index");
            PutText(record, "InterfaceType", *disk, "InterfaceType");
            PutText(record, "Manufacturer", *disk, "Manufacturer");
            PutText(record, "Model", *disk, "Model");
            PutNumber(record, "Partitions", *disk, "Partitions");
            PutNumber(record, "SectorsPerTrack", *disk, "SectorsPerTrack");
            PutNumber(record, "BytesPerSector", *disk, "BytesPerSector");
            if (const auto media = QueryMediaOfDisk(queries_, *disk)) {
                SetProperty(record, "SerialNumber", media->serialNumber);
            }
            PutText(record, "Size", *disk, "Size");
            PutNumber(record, "TracksPerCylinder", *disk, "TracksPerCylinder");
            PutText(record, "TotalCylinders", *disk, "TotalCylinders");
            PutNumber(record, "TotalHeads", *disk, "TotalHeads");
            PutText(record, "TotalSectors", *disk, "TotalSectors");
            PutText(record, "TotalTracks", *disk, "TotalTracks");
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
