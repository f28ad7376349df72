#include "qvsata/hosting/objects/ObjectReading.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/Variant.h"
#include "qvsata/cim/Snapshot.h"
#include "qvsata/hosting/objects/CimVariantReader.h"
#include "qvsata/hosting/objects/ObjectFace.h"

namespace qv::service {
namespace {

ObjectProperty MakeProperty(std::string_view name, const VARIANT& value, CIMTYPE number,
                            LONG flavor) {
    ObjectProperty property;
    property.name = name;
    property.type = static_cast<CimType>(number & ~CIM_FLAG_ARRAY);
    property.isArray = (number & CIM_FLAG_ARRAY) != 0;
    property.value = ReadVariant(value, property.type).value_or(CimValue{});
    property.isInherited = flavor == WBEM_FLAVOR_ORIGIN_PROPAGATED;
    return property;
}

std::optional<ObjectProperty> ReadProperty(IWbemClassObject& object, std::string_view name) {
    windows::Variant value;
    CIMTYPE type = CIM_EMPTY;
    LONG flavor = 0;
    if (FAILED(object.Get(windows::ToWide(name, CP_UTF8).c_str(), 0, value.Receive(), &type,
                          &flavor))) {
        return std::nullopt;
    }
    return MakeProperty(name, value.Get(), type, flavor);
}

std::vector<ObjectProperty> ReadProperties(IWbemClassObject& object) {
    std::vector<ObjectProperty> properties;
    if (FAILED(object.BeginEnumeration(WBEM_FLAG_NONSYSTEM_ONLY))) {
        return properties;
    }
    windows::Bstr name;
    windows::Variant value;
    CIMTYPE type = CIM_EMPTY;
    LONG flavor = 0;
    while (object.Next(0, name.Receive(), value.Receive(), &type, &flavor) == WBEM_S_NO_ERROR) {
        properties.push_back(
            MakeProperty(windows::ToNarrow(name.View(), CP_UTF8), value.Get(), type, flavor));
    }
    object.EndEnumeration();
    return properties;
}

}  // namespace

ObjectPtr ReadObject(IWbemClassObject& object) {
    if (ObjectPtr own = ObjectFace::Behind(object)) {
        return own;
    }
    std::vector<ObjectProperty> properties;
    for (const std::string_view name : systemPropertyNames) {
        if (std::optional<ObjectProperty> property = ReadProperty(object, name)) {
            properties.push_back(std::move(*property));
        }
    }
    std::ranges::move(ReadProperties(object), std::back_inserter(properties));
    return std::make_shared<const Snapshot>(std::move(properties));
}

}  // namespace qv::service
