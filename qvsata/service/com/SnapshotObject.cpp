#include "qvsata/service/com/SnapshotObject.h"

#include <algorithm>
#include <array>

#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/Guarded.h"
#include "qvsata/service/com/ObjectReading.h"
#include "source/Text.h"

namespace qv::service {

std::optional<ObjectProperty> SnapshotObject::Find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        *snapshot_, [name](const auto& one) { return EqualsIgnoringCase(one.name, name); });
    return found == snapshot_->end() ? std::nullopt : std::optional(*found);
}

std::vector<std::string> SnapshotObject::Names() const {
    std::vector<std::string> names;
    for (const ObjectProperty& property : *snapshot_) {
        if (!IsSystemName(property.name)) {
            names.push_back(property.name);
        }
    }
    return names;
}

HRESULT SnapshotObject::Clone(IWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *copy = windows::MakeObject<SnapshotObject>(snapshot_).Detach();
        return WBEM_S_NO_ERROR;
    });
}

Snapshot SnapshotOf(const RecordedObject& object) {
    auto properties = std::make_shared<std::vector<ObjectProperty>>();
    const auto read = [&](const std::string& name) {
        if (std::optional<CimValue> value = object.Get(name)) {
            const CimType type = TypeOf(*value);
            const bool isArray = IsArray(*value);
            properties->push_back({name, type, isArray, std::move(*value), false, false});
        }
    };
    std::ranges::for_each(systemPropertyNames, [&](auto name) { read(std::string(name)); });
    std::ranges::for_each(object.PropertyNames(), read);
    return properties;
}

Snapshot SnapshotOf(IWbemClassObject& object) {
    auto properties = std::make_shared<std::vector<ObjectProperty>>();
    for (const std::string_view name : systemPropertyNames) {
        if (std::optional<ObjectProperty> property = ReadProperty(object, name)) {
            properties->push_back(std::move(*property));
        }
    }
    std::ranges::move(ReadProperties(object), std::back_inserter(*properties));
    return properties;
}

Snapshot SnapshotOf(IWbemClassObject& object, const std::vector<std::string>& selected) {
    auto properties = std::make_shared<std::vector<ObjectProperty>>(*SnapshotOf(object));
    std::erase_if(*properties, [&](const ObjectProperty& property) {
        return !IsSystemName(property.name) &&
               std::ranges::none_of(selected, [&](const std::string& name) {
                   return EqualsIgnoringCase(name, property.name);
               });
    });
    return properties;
}

}  // namespace qv::service
