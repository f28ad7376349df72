// QV_SATADiskPhysicalPackage: the physical unit of each Win32_DiskDrive row of interface type
// "IDE". Serial number and name come from the disk's Win32_PhysicalMedia row.
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/PhysicalMedia.h"
#include "NativeAPI/Properties.h"
#include "source/PropertyReaders.h"
#include "source/Text.h"

namespace qv {

RecordList NativeAPI::getQV_SATADiskPhysicalPackage(const Request& request) const {
    RecordList records;
    for (const auto& disk : QueryIdeDisks(queries_)) {
        InstanceRecord record(request.className);
        SetKeyProperty(record, "CreationClassName", record.className);
        SetKeyProperty(record, "Tag", EncodeDeviceId(TextOrEmpty(*disk, "PNPDeviceID")));
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutText(record, "ElementName", *disk, "Caption");
            PutText(record, "Manufacturer", *disk, "Manufacturer");
            PutText(record, "Model", *disk, "Model");
            PutText(record, "Version", *disk, "FirmwareRevision");
            if (const auto media = QueryMediaOfDisk(queries_, *disk)) {
                SetProperty(record, "SerialNumber", media->serialNumber);
                // The media's tag, on purpose: the disk's own name is not published.
                SetProperty(record, "Name", media->tag);
            }
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
