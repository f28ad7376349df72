#include "qvsata/service/com/ClassObject.h"

#include <algorithm>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/Guarded.h"
#include "qvsata/service/com/InstanceObject.h"
#include "qvsata/service/com/MofText.h"
#include "qvsata/service/com/SystemProperties.h"
#include "source/Text.h"

namespace qv::service {

ObjectProperty AsDefined(const PropertyDefinition& definition, const ResolvedClass& type) {
    return {definition.name,    definition.type,
            definition.isArray, definition.defaultValue,
            definition.isKey,   !EqualsIgnoringCase(definition.declaringClass, type.name)};
}

std::vector<std::string> PropertyNames(const ResolvedClass& type) {
    std::vector<std::string> names;
    std::ranges::transform(type.properties, std::back_inserter(names), &PropertyDefinition::name);
    return names;
}

std::optional<ObjectProperty> ClassObject::Find(std::string_view name) const {
    if (IsSystemName(name)) {
        return SystemProperty(name, *definition_, Genus::classDefinition, definition_->name);
    }
    const PropertyDefinition* property = definition_->Find(name);
    return property == nullptr ? std::nullopt : std::optional(AsDefined(*property, *definition_));
}

std::vector<std::string> ClassObject::Names() const {
    return PropertyNames(*definition_);
}

HRESULT ClassObject::SpawnInstance(LONG flags, IWbemClassObject** instance) {
    if (instance == nullptr || flags != 0) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *instance = windows::MakeObject<InstanceObject>(definition_).Detach();
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ClassObject::Clone(IWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *copy = windows::MakeObject<ClassObject>(definition_).Detach();
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ClassObject::GetPropertyOrigin(LPCWSTR name, BSTR* className) {
    if (name == nullptr || className == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const PropertyDefinition* property = definition_->Find(windows::ToNarrow(name, CP_UTF8));
        if (property == nullptr) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        *className = windows::Bstr(windows::ToWide(property->declaringClass, CP_UTF8)).Detach();
        return WBEM_S_NO_ERROR;
    });
}

std::string ClassObject::MofText() const {
    return ClassMof(*definition_);
}

}  // namespace qv::service
