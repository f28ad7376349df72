#include "NativeAPI/Attachment.h"

#include <utility>

#include "NativeAPI/KeptRows.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/Text.h"

namespace qv {

std::string ConnectedId(std::string_view deviceId, const platform::Row* controller) {
    std::string connected = EncodeDeviceId(deviceId).append(connectedTo);
    if (controller != nullptr) {
        connected += EncodeDeviceId(TextOrEmpty(*controller, "DeviceID"));
    }
    return connected;
}

AttachedDisks QueryAttachedDisks(const platform::QueryPort& queries) {
    platform::Rows disks = QueryIdeDisks(queries);
    platform::Rows links;
    platform::Rows controllers;
    queries.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_IDEControllerDevice", links);
    QueryControllerRows(queries, controllers);
    ControllerLinks attachments(links, controllers);
    return {std::move(disks), std::move(controllers), std::move(attachments)};
}

}  // namespace qv
