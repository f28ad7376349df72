// QV_SATALogicalPort: one instance per channel, a Win32_IDEController row with "IDECHANNEL" in its
// PNPDeviceID. The key names the channel and the controller to which a Win32_IDEControllerDevice
// row links it.
#include "NativeAPI/Attachment.h"
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/Properties.h"
#include "source/HostIdentity.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv {

RecordList NativeAPI::getQV_SATALogicalPort(const Request& request) const {
    RecordList records;
    platform::Rows channels;
    platform::Rows controllers;
    platform::Rows links;
    // The same query twice, on purpose: only the outcome of the second one counts.
    QueryControllerRows(queries_, channels);
    const Status outcome = QueryControllerRows(queries_, controllers);
    queries_.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_IDEControllerDevice", links);
    if (!Succeeded(outcome)) {
        return records;
    }
    const ControllerLinks parents(links, controllers);
    const auto hostName = HostName(host_);
    for (const auto& channel : channels) {
        const std::string channelId = TextOrEmpty(*channel, "PNPDeviceID");
        if (!IsChannel(channelId)) {
            continue;
        }
        const auto* parent = parents.ControllerOfChannel(TextOrEmpty(*channel, "__PATH"));
        InstanceRecord record(request.className);
        SetKeyProperty(record, "DeviceID", ConnectedId(channelId, parent));
        PutSystemName(record, hostName);
        PutCreationClassNames(record);
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            const std::string label = ChannelLabel(channelId);
            SetProperty(record, "Caption", label);
            SetProperty(record, "ElementName", label);
            // Without StatusDescriptions, on purpose.
            PutOperationalStatus(record, *channel);
            // Both are numbers published as text, on purpose.
            SetProperty(record, "UsageRestriction", "4", PropertyType::text);
            SetProperty(record, "PortType", "1");
            SetProperty(record, "OtherPortType", "IDE/SATA");
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
