#include "qvsata/hosting/objects/ObjectFace.h"

#include <algorithm>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/CimVariant.h"
#include "qvsata/hosting/objects/ClassFace.h"
#include "qvsata/hosting/objects/Guarded.h"
#include "qvsata/mof/MofText.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using windows::Bstr;

// The interface ID by which an object tells that it is an ObjectFace; QueryInterface returns the
// face itself.
// {5C0B9E52-6E0F-4B7B-9D0E-2F1B7C5C3A61}
constexpr IID faceId{0x5C0B9E52, 0x6E0F, 0x4B7B, {0x9D, 0x0E, 0x2F, 0x1B, 0x7C, 0x5C, 0x3A, 0x61}};

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

/// Writes a property to the out parameters of Get and Next, each of which may be null.
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

ObjectPtr ObjectFace::Behind(IUnknown& object) {
    void* found = nullptr;
    if (FAILED(object.QueryInterface(faceId, &found))) {
        return nullptr;
    }
    const auto face = windows::Adopt(static_cast<ObjectFace*>(found));
    return face->object_;
}

HRESULT ObjectFace::QueryInterface(REFIID iid, void** object) {
    if (object != nullptr && IsEqualIID(iid, faceId)) {
        AddRef();
        *object = this;
        return S_OK;
    }
    return UnsupportedObject::QueryInterface(iid, object);
}

HRESULT ObjectFace::Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE* type, LONG* flavor) {
    if (name == nullptr || flags != 0) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::optional<ObjectProperty> property =
            object_->Find(windows::ToNarrow(name, CP_UTF8));
        if (!property) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        HandOver(*property, value, type, flavor);
        return WBEM_S_NO_ERROR;
    });
}

std::vector<std::string> ObjectFace::Choose(LONG flags) const {
    std::vector<std::string> names(systemPropertyNames.begin(), systemPropertyNames.end());
    std::ranges::copy(object_->Names(), std::back_inserter(names));
    std::erase_if(names, [&](const std::string& name) {
        const std::optional<ObjectProperty> property = object_->Find(name);
        return !property || !IsChosen(*property, flags);
    });
    return names;
}

HRESULT ObjectFace::GetNames(LPCWSTR qualifier, LONG flags, VARIANT*, SAFEARRAY** names) {
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

HRESULT ObjectFace::BeginEnumeration(LONG flags) {
    return Guarded([&]() -> HRESULT {
        enumerated_ = Choose(flags);
        next_ = 0;
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ObjectFace::Next(LONG flags, BSTR* name, VARIANT* value, CIMTYPE* type, LONG* flavor) {
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
        const ObjectProperty property = object_->Find((*enumerated_)[next_]).value();
        Bstr text(windows::ToWide(property.name, CP_UTF8));
        HandOver(property, value, type, flavor);
        if (name != nullptr) {
            *name = text.Detach();
        }
        ++next_;
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ObjectFace::EndEnumeration() {
    enumerated_.reset();
    return WBEM_S_NO_ERROR;
}

HRESULT ObjectFace::GetObjectText(LONG, BSTR* text) {
    if (text == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *text = Bstr(windows::ToWide(ObjectAsMof(*object_), CP_UTF8)).Detach();
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ObjectFace::InheritsFrom(LPCWSTR ancestor) {
    if (ancestor == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::string name = windows::ToNarrow(ancestor, CP_UTF8);
        const auto isIt = [&name](const std::string& one) { return EqualsIgnoringCase(one, name); };
        const std::optional<ObjectProperty> own = object_->Find("__CLASS");
        const std::optional<ObjectProperty> derivation = object_->Find("__DERIVATION");
        const auto* ownName = own ? std::get_if<std::string>(&own->value) : nullptr;
        const auto* ancestors =
            derivation ? std::get_if<std::vector<std::string>>(&derivation->value) : nullptr;
        return (ownName != nullptr && isIt(*ownName)) ||
                       (ancestors != nullptr && std::ranges::any_of(*ancestors, isIt))
                   ? WBEM_S_NO_ERROR
                   : WBEM_S_FALSE;
    });
}

HRESULT ObjectFace::Clone(IWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *copy = windows::MakeObject<ObjectFace>(object_).Detach();
        return WBEM_S_NO_ERROR;
    });
}

windows::ComPtr<IWbemClassObject> FaceOf(const ObjectPtr& object) {
    if (object->Definition()) {
        return windows::MakeObject<ClassFace>(object);
    }
    return windows::MakeObject<ObjectFace>(object);
}

}  // namespace qv::service
