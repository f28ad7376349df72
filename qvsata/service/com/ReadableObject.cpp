#include "qvsata/service/com/ReadableObject.h"

#include <algorithm>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/CimVariant.h"
#include "qvsata/service/com/Guarded.h"
#include "qvsata/service/com/MofText.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using windows::Bstr;

LONG FlavorOf(const ObjectProperty& property) {
    if (IsSystemName(property.name)) {
        return WBEM_FLAVOR_ORIGIN_SYSTEM;
    }
    return property.isInherited ? WBEM_FLAVOR_ORIGIN_PROPAGATED : WBEM_FLAVOR_ORIGIN_LOCAL;
}

bool IsOfOrigin(const ObjectProperty& property, LONG flags) {
    const LONG flavor = FlavorOf(property);
    switch (flags & WBEM_MASK_CONDITION_ORIGIN) {
        case WBEM_FLAG_LOCAL_ONLY:
            return flavor == WBEM_FLAVOR_ORIGIN_LOCAL;
        case WBEM_FLAG_PROPAGATED_ONLY:
            return flavor == WBEM_FLAVOR_ORIGIN_PROPAGATED;
        case WBEM_FLAG_SYSTEM_ONLY:
            return flavor == WBEM_FLAVOR_ORIGIN_SYSTEM;
        case WBEM_FLAG_NONSYSTEM_ONLY:
            return flavor != WBEM_FLAVOR_ORIGIN_SYSTEM;
        default:
            return true;
    }
}

bool IsChosen(const ObjectProperty& property, LONG flags) {
    return IsOfOrigin(property, flags) && ((flags & WBEM_FLAG_KEYS_ONLY) == 0 || property.isKey) &&
           ((flags & WBEM_FLAG_REFS_ONLY) == 0 || property.type == CimType::reference);
}

/// Hands a property over to the out parameters of Get and Next, each of which may be null.
void HandOver(const ObjectProperty& property, VARIANT* value, CIMTYPE* type, LONG* flavor) {
    if (value != nullptr) {
        WriteVariant(property.value, property.type, *value);
    }
    if (type != nullptr) {
        *type = CimTypeNumber(property.type, property.isArray);
    }
    if (flavor != nullptr) {
        *flavor = FlavorOf(property);
    }
}

}  // namespace

bool IsSystemName(std::string_view name) {
    return name.starts_with("__");
}

HRESULT ReadableObject::Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE* type, LONG* flavor) {
    if (name == nullptr || flags != 0) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::optional<ObjectProperty> property = Find(windows::ToNarrow(name, CP_UTF8));
        if (!property) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        HandOver(*property, value, type, flavor);
        return WBEM_S_NO_ERROR;
    });
}

std::vector<std::string> ReadableObject::Choose(LONG flags) const {
    std::vector<std::string> names(systemPropertyNames.begin(), systemPropertyNames.end());
    std::ranges::copy(Names(), std::back_inserter(names));
    std::erase_if(names, [&](const std::string& name) {
        const std::optional<ObjectProperty> property = Find(name);
        return !property || !IsChosen(*property, flags);
    });
    return names;
}

HRESULT ReadableObject::GetNames(LPCWSTR qualifier, LONG flags, VARIANT*, SAFEARRAY** names) {
    if (names == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    if (qualifier != nullptr || (flags & WBEM_MASK_PRIMARY_CONDITION) != 0) {
        return windows::Hr(WBEM_E_NOT_SUPPORTED);
    }
    return Guarded([&]() -> HRESULT {
        VARIANT array;
        WriteVariant(Choose(flags), CimType::string, array);
        *names = V_ARRAY(&array);
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ReadableObject::BeginEnumeration(LONG flags) {
    return Guarded([&]() -> HRESULT {
        enumerated_ = Choose(flags);
        next_ = 0;
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ReadableObject::Next(LONG flags, BSTR* name, VARIANT* value, CIMTYPE* type, LONG* flavor) {
    if (flags != 0) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    if (!enumerated_) {
        return windows::Hr(WBEM_E_UNEXPECTED);
    }
    return Guarded([&]() -> HRESULT {
        if (next_ == enumerated_->size()) {
            return WBEM_S_NO_MORE_DATA;
        }
        const ObjectProperty property = Find((*enumerated_)[next_]).value();
        Bstr text(windows::ToWide(property.name, CP_UTF8));
        HandOver(property, value, type, flavor);
        if (name != nullptr) {
            *name = text.Detach();
        }
        ++next_;
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ReadableObject::EndEnumeration() {
    enumerated_.reset();
    return WBEM_S_NO_ERROR;
}

HRESULT ReadableObject::GetObjectText(LONG, BSTR* text) {
    if (text == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *text = Bstr(windows::ToWide(MofText(), CP_UTF8)).Detach();
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ReadableObject::InheritsFrom(LPCWSTR ancestor) {
    if (ancestor == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::string name = windows::ToNarrow(ancestor, CP_UTF8);
        const auto isIt = [&name](const std::string& one) { return EqualsIgnoringCase(one, name); };
        const std::optional<ObjectProperty> own = Find("__CLASS");
        const std::optional<ObjectProperty> derivation = Find("__DERIVATION");
        const auto* ownName = own ? std::get_if<std::string>(&own->value) : nullptr;
        const auto* ancestors =
            derivation ? std::get_if<std::vector<std::string>>(&derivation->value) : nullptr;
        return (ownName != nullptr && isIt(*ownName)) ||
                       (ancestors != nullptr && std::ranges::any_of(*ancestors, isIt))
                   ? WBEM_S_NO_ERROR
                   : WBEM_S_FALSE;
    });
}

std::string ReadableObject::MofText() const {
    std::vector<ObjectProperty> properties;
    std::ranges::transform(Names(), std::back_inserter(properties),
                           [this](const std::string& name) { return Find(name).value(); });
    return InstanceMof(std::get<std::string>(Find("__CLASS").value().value), properties);
}

}  // namespace qv::service
