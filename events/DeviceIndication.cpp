#include "events/DeviceIndication.h"

#include "events/AlertTime.h"
#include "source/FillInstance.h"

namespace qv {
namespace {

constexpr std::string_view eventIdName = "EventID";

std::string PathOfDisk(const DiskRecord& disk) {
    InstanceRecord instance(disk.creationClassName);
    SetKeyProperty(instance, "CreationClassName", disk.creationClassName);
    SetKeyProperty(instance, "DeviceID", disk.deviceId);
    SetKeyProperty(instance, "SystemCreationClassName", disk.systemCreationClassName);
    SetKeyProperty(instance, "SystemName", disk.systemName);
    return BuildObjectPath(instance);
}

}  // namespace

InstanceRecord BuildDeviceIndication(const DiskRecord& disk, std::string_view eventId,
                                     const platform::LocalTime& time) {
    constexpr const char* cimObjectPath = "2";
    InstanceRecord event(deviceIndicationClass);
    SetProperty(event, "EventTime", FormatEventTime(time));
    SetProperty(event, "DeviceID", disk.deviceId);
    SetProperty(event, "AlertingManagedElement", PathOfDisk(disk), PropertyType::reference);
    SetProperty(event, "AlertingElementFormat", cimObjectPath, PropertyType::int32);
    SetProperty(event, "DeviceModel", disk.model);
    SetProperty(event, eventIdName, std::string(eventId));
    return event;
}

std::string EventIdOf(const InstanceRecord& event) {
    return GetPropertyEntry(event, eventIdName).value;
}

Status FillDeviceIndication(PropertyTarget& indication, const InstanceRecord& event,
                            const AlertSources& sources) {
    const Status common = FillCommonProperties(indication, "QV SATA", EventIdOf(event), sources);
    if (!Succeeded(common)) {
        return common;
    }
    InstanceRecord own = event;
    std::erase_if(own.properties,
                  [](const PropertyEntry& property) { return property.name == eventIdName; });
    FillInstance(indication, own);
    return Status::noError;
}

}  // namespace qv
