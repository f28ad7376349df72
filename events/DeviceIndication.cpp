#include "events/DeviceIndication.h"

#include "events/AlertTime.h"

namespace qv {
namespace {

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
    SetProperty(event, "EventID", std::string(eventId));
    return event;
}

}  // namespace qv
