// The two ends of a link. QV_ISATAProtocolEndpoint: one instance per channel row of
// Win32_IDEController, keyed by its encoded device ID. QV_TSATAProtocolEndpoint: one instance per
// Win32_DiskDrive row of interface type "IDE", keyed by the disk together with its controller or
// channel.
#include "NativeAPI/Attachment.h"
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/Properties.h"
#include "source/HostIdentity.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv {
namespace {

// Both kinds of endpoints put these keys in this order.
void PutClassNames(InstanceRecord& record) {
    SetKeyProperty(record, "SystemCreationClassName", std::string(GetComputerSystemClassName()));
    SetKeyProperty(record, "CreationClassName", record.className);
}

void PutDetails(InstanceRecord& record, std::string_view endOfLink) {
    const std::string caption = "Protocol Endpoint for " + std::string(endOfLink);
    SetProperty(record, "Caption", caption);
    SetProperty(record, "ElementName", caption);
    SetProperty(record, "ProtocolIFType", "1", PropertyType::int32);
    SetProperty(record, "OtherTypeDescription", "IDE/ATA/SATA");
}

}  // namespace

RecordList NativeAPI::getQV_ISATAProtocolEndpoint(const Request& request) const {
    RecordList records;
    const auto hostName = HostName(host_);
    for (const auto& [deviceId, row] : QueryControllers(queries_, IsInitiator)) {
        InstanceRecord record(request.className);
        PutSystemName(record, hostName);
        PutClassNames(record);
        SetKeyProperty(record, "Name", EncodeDeviceId(deviceId));
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutDetails(record, ChannelLabel(deviceId));
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

RecordList NativeAPI::getQV_TSATAProtocolEndpoint(const Request& request) const {
    RecordList records;
    const AttachedDisks attached = QueryAttachedDisks(queries_);
    const auto hostName = HostName(host_);
    for (const auto& disk : attached.disks) {
        const std::string diskId = TextOrEmpty(*disk, "PNPDeviceID");
        InstanceRecord record(request.className);
        if (const auto* controller = attached.links.ControllerOfDisk(diskId)) {
            SetKeyProperty(record, "Name", ConnectedId(diskId, controller));
        }
        // Put even without a host name, on purpose, unlike the other classes.
        SetKeyProperty(record, "SystemName", hostName.value_or(""));
        PutClassNames(record);
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutDetails(record, diskId);
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
