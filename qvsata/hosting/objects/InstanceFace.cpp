#include "qvsata/hosting/objects/InstanceFace.h"

#include "platform/windows/Text.h"
#include "platform/windows/Variant.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/hosting/objects/CimVariantReader.h"
#include "qvsata/hosting/objects/Guarded.h"
#include "qvsata/hosting/objects/PutRules.h"

namespace qv::service {
namespace {

/// Returns the value passed to Put as it is recorded: the raw number of a boolean tells 1 from -1.
CimValue AsHandedOver(const VARIANT& value) {
    if (V_VT(&value) == VT_BOOL) {
        return static_cast<std::int64_t>(V_BOOL(&value));
    }
    return ReadVariant(value).value_or(CimValue{});
}

}  // namespace

HRESULT InstanceFace::PutValue(std::string_view name, const VARIANT& value) {
    if (IsSystemName(name)) {
        return windows::Hr(WBEM_E_READ_ONLY);
    }
    const PropertyDefinition* property = instance_->Class()->Find(name);
    if (property == nullptr) {
        return windows::Hr(WBEM_E_NOT_FOUND);
    }
    CimValue stored;
    const HRESULT result = ConvertForPut(value, property->type, property->isArray, stored);
    if (SUCCEEDED(result)) {
        instance_->Set(name, std::move(stored));
    }
    return result;
}

HRESULT InstanceFace::Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) {
    if (name == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        windows::Variant null;
        V_VT(null.Pass()) = VT_NULL;
        const VARIANT& given = value == nullptr ? null.Get() : *value;
        PutCall call{windows::ToNarrow(name, CP_UTF8), V_VT(&given), AsHandedOver(given),
                     status::invalidParameter};
        if (flags == 0 && type == 0) {
            call.result = windows::ToStatus(PutValue(call.name, given));
        }
        const HRESULT result = windows::ToHresult(call.result);
        instance_->Record(std::move(call));
        return result;
    });
}

HRESULT InstanceFace::Delete(LPCWSTR name) {
    if (name == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        if (!instance_->Reset(windows::ToNarrow(name, CP_UTF8))) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        return WBEM_S_RESET_TO_DEFAULT;
    });
}

HRESULT InstanceFace::Clone(IWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        *copy = windows::MakeObject<InstanceFace>(std::make_shared<Instance>(*instance_)).Detach();
        return WBEM_S_NO_ERROR;
    });
}

}  // namespace qv::service
