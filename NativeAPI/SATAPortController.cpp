// QV_SATAPortController: one instance per Win32_IDEController row with a PCI revision in its device
// ID. The encoded device ID is the key, by which all instances of the controller refer to it.
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/Properties.h"
#include "source/HostIdentity.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv {
namespace {

// Read as 16 bits; 0 if the source has no number.
std::string ProtocolSupported(const platform::Row& row) {
    std::uint16_t protocol = 0;
    GetUInt16Property(row, "ProtocolSupported", protocol);
    return std::to_string(protocol);
}

}  // namespace

RecordList NativeAPI::getQV_SATAPortController(const Request& request) const {
    RecordList records;
    const auto hostName = HostName(host_);
    for (const auto& [deviceId, row] : QueryControllers(queries_, IsPortController)) {
        InstanceRecord record(request.className);
        PutSystemName(record, hostName);
        PutCreationClassNames(record);
        SetKeyProperty(record, "DeviceID", EncodeDeviceId(deviceId));
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            PutText(record, "Caption", *row, "Caption");
            // The description, on purpose: the source's own name is published as ElementName.
            PutText(record, "Name", *row, "Description");
            PutText(record, "Description", *row, "Description");
            PutText(record, "ElementName", *row, "Name");
            SetProperty(record, "ProtocolSupported", ProtocolSupported(*row), PropertyType::int32);
            PutStatus(record, *row);
            SetProperty(record, "ControllerType", "1", PropertyType::int32);
            SetProperty(record, "OtherControllerType", "IDE/SATA");
            SetProperty(record, "ControllerVersion", std::string(RevisionOf(deviceId)),
                        PropertyType::int32);
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
