#include "qvsata/hosting/objects/ClassFace.h"

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/cim/ClassObject.h"
#include "qvsata/hosting/objects/Guarded.h"
#include "qvsata/hosting/objects/InstanceFace.h"

namespace qv::service {

HRESULT ClassFace::SpawnInstance(LONG flags, IWbemClassObject** instance) {
    if (instance == nullptr || flags != 0) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *instance =
            windows::MakeObject<InstanceFace>(std::make_shared<Instance>(definition_)).Detach();
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ClassFace::Clone(IWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *copy = windows::MakeObject<ClassFace>(std::make_shared<const ClassObject>(definition_))
                    .Detach();
        return WBEM_S_NO_ERROR;
    });
}

HRESULT ClassFace::GetPropertyOrigin(LPCWSTR name, BSTR* className) {
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

}  // namespace qv::service
