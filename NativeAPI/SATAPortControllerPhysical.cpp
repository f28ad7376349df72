// The physical side of each port controller, a Win32_IDEController row with a PCI revision in its
// device ID: QV_SATAPortControllerProduct, QV_SATAControllerLocation and
// QV_SATAPortControllerPhysicalPackage, each keyed by the encoded device ID.
#include "NativeAPI/KeptRows.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/Properties.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv {
namespace {

std::string PositionText(const ControllerRow& controller) {
    return TextOrEmpty(*controller.row, "Caption")
        .append(" with Device ID: ")
        .append(DeviceNumberOf(controller.deviceId));
}

}  // namespace

RecordList NativeAPI::getQV_SATAPortControllerProduct(const Request& request) const {
    RecordList records;
    for (const ControllerRow& controller : QueryControllers(queries_, IsPortController)) {
        const std::string revision(RevisionOf(controller.deviceId));
        InstanceRecord record(request.className);
        SetKeyProperty(record, "Name", EncodeDeviceId(controller.deviceId));
        SetKeyProperty(record, "Vendor", TextOrEmpty(*controller.row, "Manufacturer"));
        SetKeyProperty(
            record, "IdentifyingNumber",
            TextOrEmpty(*controller.row, "Caption") + " with Revision number: " + revision);
        SetKeyProperty(record, "Version", revision);
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            SetProperty(record, "ElementName", PositionText(controller));
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

RecordList NativeAPI::getQV_SATAControllerLocation(const Request& request) const {
    RecordList records;
    for (const ControllerRow& controller : QueryControllers(queries_, IsPortController)) {
        const std::string position = PositionText(controller);
        InstanceRecord record(request.className);
        SetKeyProperty(record, "Name", EncodeDeviceId(controller.deviceId));
        SetKeyProperty(record, "PhysicalPosition", position);
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            SetProperty(record, "ElementName", position);
            SetProperty(record, "Caption", position);
            SetProperty(record, "Description", position);
            // Put twice, on purpose: the later value is the published one.
            SetProperty(record, "ElementLocationTagDesc", "21", PropertyType::int32);
            SetProperty(record, "ElementLocationTagDesc", "15", PropertyType::int32);
            SetProperty(record, "ElementLocationTag",
                        "PCI DEVICE ID: " + std::string(DeviceNumberOf(controller.deviceId)));
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

RecordList NativeAPI::getQV_SATAPortControllerPhysicalPackage(const Request& request) const {
    RecordList records;
    for (const ControllerRow& controller : QueryControllers(queries_, IsPortController)) {
        InstanceRecord record(request.className);
        SetKeyProperty(record, "CreationClassName", record.className);
        SetKeyProperty(record, "Tag", EncodeDeviceId(controller.deviceId));
        if (!request.Accepts(record)) {
            continue;
        }
        if (request.WantsAllProperties()) {
            const platform::Row& row = *controller.row;
            PutText(record, "Caption", row, "Caption");
            // The description, on purpose: the source's own name is published as ElementName.
            PutText(record, "Name", row, "Description");
            PutText(record, "Description", row, "Description");
            PutText(record, "ElementName", row, "Name");
            PutText(record, "Manufacturer", row, "Manufacturer");
            PutText(record, "SerialNumber", row, "DeviceID");
        }
        AppendRecord(records, std::move(record));
    }
    return records;
}

}  // namespace qv
