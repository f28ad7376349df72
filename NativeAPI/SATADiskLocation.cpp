// QV_SATADiskLocation: the location of each Win32_DiskDrive row of interface type "IDE", which is
// the controller or channel that its Win32_IDEControllerDevice link names.
#include "NativeAPI/Attachment.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/Properties.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv {
namespace {

// Returns the text after the last ampersand; the whole ID if it has none (the position after npos
// is 0).
std::string LocationTag(const std::string& pnpDeviceId) {
    return "SCSI ID: " + pnpDeviceId.substr(pnpDeviceId.rfind('&') + 1);
}

}  // namespace

RecordList NativeAPI::getQV_SATADiskLocation(const Request& request) const {
    RecordList records;
    const AttachedDisks attached = QueryAttachedDisks(queries_);
    for (const auto& disk : attached.disks) {
        const std::string diskId = TextOrEmpty(*disk, "PNPDeviceID");
        std::string position;
        std::string controllerId;
        if (const auto* controller = attached.links.ControllerOfDisk(diskId)) {
            position = TextOrEmpty(*controller, "Caption");
            controllerId = TextOrEmpty(*controller, "DeviceID");
        }
        InstanceRecord record(request.className);
        SetKeyProperty(record, "Name", EncodeDeviceId(diskId));
        SetKeyProperty(record, "PhysicalPosition", position);
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            const std::string description = ("Standard ATA Disk Drive at " + position + ",")
                                                .append(FirstSegmentOf(controllerId));
            SetProperty(record, "Description", description);
            SetProperty(record, "ElementName", description);
            PutText(record, "Caption", *disk, "Caption");
            SetProperty(record, "ElementLocationTagDesc", "21", PropertyType::int32);
            SetProperty(record, "ElementLocationTag", LocationTag(diskId));
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
