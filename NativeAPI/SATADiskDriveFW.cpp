// QV_SATADiskDriveFW: the firmware of each Win32_DiskDrive row of interface type "IDE", keyed by
// the disk's encoded plug-and-play device ID.
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/PhysicalMedia.h"
#include "NativeAPI/Properties.h"
#include "source/PropertyReaders.h"
#include "source/Text.h"

namespace qv {
namespace {

constexpr const char* firmwareTitle = "Disk Drive Firmware";

}  // namespace

RecordList NativeAPI::getQV_SATADiskDriveFW(const Request& request) const {
    RecordList records;
    for (const auto& disk : QueryIdeDisks(queries_)) {
        InstanceRecord record(request.className);
        SetKeyProperty(record, "InstanceID", EncodeDeviceId(TextOrEmpty(*disk, "PNPDeviceID")));
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutText(record, "ElementName", *disk, "Model");
            SetProperty(record, "Name", firmwareTitle);
            SetProperty(record, "Caption", firmwareTitle);
            SetProperty(record, "Description", firmwareTitle);
            SetProperty(record, "ClassificationDescriptions", firmwareTitle,
                        PropertyType::stringArray);
            SetProperty(record, "Classifications", "10", PropertyType::int32Array);
            PutText(record, "Manufacturer", *disk, "Manufacturer");
            SetProperty(record, "IdentityInfoType", "CIM:SoftwareFamily",
                        PropertyType::stringArray);
            SetProperty(record, "IdentityInfoValue", "QVQ:" + TextOrEmpty(*disk, "Model"),
                        PropertyType::stringArray);
            PutText(record, "VersionString", *disk, "FirmwareRevision");
            if (const auto media = QueryMediaOfDisk(queries_, *disk)) {
                SetProperty(record, "SerialNumber", media->serialNumber);
            }
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
