#include "qvsata/service/com/ObjectReading.h"

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/Variant.h"
#include "qvsata/service/com/CimVariant.h"

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

}  // namespace

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

std::string ReadText(IWbemClassObject& object, std::string_view name) {
    const std::optional<ObjectProperty> property = ReadProperty(object, name);
    const auto* text = property ? std::get_if<std::string>(&property->value) : nullptr;
    return text == nullptr ? std::string() : *text;
}

PropertyReader ReaderOf(IWbemClassObject& object) {
    return [&object](std::string_view name) -> std::optional<CimValue> {
        std::optional<ObjectProperty> property = ReadProperty(object, name);
        if (!property) {
            return std::nullopt;
        }
        return std::move(property->value);
    };
}

}  // namespace qv::service
