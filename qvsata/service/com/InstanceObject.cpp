#include "qvsata/service/com/InstanceObject.h"

#include <algorithm>

#include "platform/windows/Text.h"
#include "platform/windows/Variant.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/service/ObjectPath.h"
#include "qvsata/service/com/CimVariant.h"
#include "qvsata/service/com/ClassObject.h"
#include "qvsata/service/com/Guarded.h"
#include "qvsata/service/com/PutRules.h"
#include "qvsata/service/com/SystemProperties.h"
#include "source/Text.h"

namespace qv::service {
namespace {

// Asked of an object to learn whether it is an InstanceObject; the answer is the object itself.
// {5C0B9E52-6E0F-4B7B-9D0E-2F1B7C5C3A61}
constexpr IID instanceObjectId{
    0x5C0B9E52, 0x6E0F, 0x4B7B, {0x9D, 0x0E, 0x2F, 0x1B, 0x7C, 0x5C, 0x3A, 0x61}};

/// What was handed to Put, for the log: the raw number of a boolean tells 1 from -1.
CimValue AsHandedOver(const VARIANT& value) {
    if (V_VT(&value) == VT_BOOL) {
        return static_cast<std::int64_t>(V_BOOL(&value));
    }
    return ReadVariant(value).value_or(CimValue{});
}

/// The value of a key as it is written in a path; nothing for a value that no key can have.
std::optional<PathKey> AsKey(const ObjectProperty& property) {
    if (const auto* text = std::get_if<std::string>(&property.value)) {
        const bool isNumber = property.type == CimType::sint64 || property.type == CimType::uint64;
        return PathKey{property.name, *text, !isNumber};
    }
    if (const auto* number = std::get_if<std::int64_t>(&property.value)) {
        return PathKey{property.name, std::to_string(*number), false};
    }
    if (const auto* flag = std::get_if<bool>(&property.value)) {
        return PathKey{property.name, *flag ? "TRUE" : "FALSE", false};
    }
    return std::nullopt;
}

std::string WithQuotesEscaped(std::string_view text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '"') {
            escaped += '\\';
        }
        escaped += character;
    }
    return escaped;
}

/// A reference as a key: the backslashes of server and namespace are escaped, which marks them as
/// such; the path behind them is the provider's own text.
std::string ReferenceAsPut(std::string_view text) {
    const std::size_t pathStart = text.starts_with(R"(\\)") ? text.find(':') : std::string::npos;
    if (pathStart == std::string::npos) {
        return WithQuotesEscaped(text);
    }
    return EscapePathValue(text.substr(0, pathStart)) + WithQuotesEscaped(text.substr(pathStart));
}

}  // namespace

InstanceObject::InstanceObject(ResolvedClassPtr type)
    : type_(std::move(type)), values_(type_->properties.size()) {}

InstanceObject* InstanceObject::From(IUnknown* object) {
    void* found = nullptr;
    if (object == nullptr || FAILED(object->QueryInterface(instanceObjectId, &found))) {
        return nullptr;
    }
    auto* instance = static_cast<InstanceObject*>(found);
    instance->Release();
    return instance;
}

HRESULT InstanceObject::QueryInterface(REFIID iid, void** object) {
    if (object != nullptr && IsEqualIID(iid, instanceObjectId)) {
        AddRef();
        *object = this;
        return S_OK;
    }
    return ReadableObject::QueryInterface(iid, object);
}

std::optional<CimValue>* InstanceObject::Slot(std::string_view name) {
    const PropertyDefinition* property = type_->Find(name);
    return property == nullptr
               ? nullptr
               : &values_[static_cast<std::size_t>(property - type_->properties.data())];
}

void InstanceObject::Set(std::string_view name, CimValue value) {
    if (std::optional<CimValue>* slot = Slot(name)) {
        *slot = std::move(value);
    }
}

std::optional<ObjectProperty> InstanceObject::Find(std::string_view name) const {
    if (IsSystemName(name)) {
        return SystemProperty(name, *type_, Genus::instance, RelativePath());
    }
    const PropertyDefinition* definition = type_->Find(name);
    if (definition == nullptr) {
        return std::nullopt;
    }
    ObjectProperty property = AsDefined(*definition, *type_);
    if (const auto& own =
            values_[static_cast<std::size_t>(definition - type_->properties.data())]) {
        property.value = *own;
    }
    return property;
}

std::vector<std::string> InstanceObject::Names() const {
    return PropertyNames(*type_);
}

std::optional<std::string> InstanceObject::RelativePath() const {
    ObjectPath path;
    path.className = type_->name;
    for (const PropertyDefinition& property : type_->properties) {
        if (property.isKey) {
            std::optional<PathKey> key = AsKey(Find(property.name).value());
            if (!key) {
                return std::nullopt;
            }
            path.keys.push_back(std::move(*key));
        }
    }
    if (path.keys.empty()) {
        return std::nullopt;
    }
    return FormatObjectPath(path, PathForm::relative, KeyOrder::alphabetical);
}

std::string InstanceObject::PathAsPut() const {
    std::string path = type_->name;
    for (char separator = '.'; const PutCall& put : putLog_) {
        const std::optional<ObjectProperty> property = Find(put.name);
        const std::optional<PathKey> key =
            property && property->isKey ? AsKey(*property) : std::nullopt;
        if (!key) {
            continue;
        }
        const std::string text = property->type == CimType::reference
                                     ? ReferenceAsPut(key->value)
                                     : WithQuotesEscaped(key->value);
        path += separator + put.name + '=' + (key->quoted ? '"' + text + '"' : text);
        separator = ',';
    }
    return path;
}

HRESULT InstanceObject::PutValue(std::string_view name, const VARIANT& value) {
    if (IsSystemName(name)) {
        return windows::Hr(WBEM_E_READ_ONLY);
    }
    const PropertyDefinition* property = type_->Find(name);
    if (property == nullptr) {
        return windows::Hr(WBEM_E_NOT_FOUND);
    }
    CimValue stored;
    const HRESULT result = ConvertForPut(value, property->type, property->isArray, stored);
    if (SUCCEEDED(result)) {
        Set(name, std::move(stored));
    }
    return result;
}

HRESULT InstanceObject::Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) {
    if (name == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        windows::Variant null;
        V_VT(null.Pass()) = VT_NULL;
        const VARIANT& given = value == nullptr ? null.Get() : *value;
        PutCall call{windows::ToNarrow(name, CP_UTF8), V_VT(&given), AsHandedOver(given),
                     windows::Hr(WBEM_E_INVALID_PARAMETER)};
        if (flags == 0 && type == 0) {
            call.result = PutValue(call.name, given);
        }
        putLog_.push_back(std::move(call));
        return putLog_.back().result;
    });
}

HRESULT InstanceObject::Delete(LPCWSTR name) {
    if (name == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        std::optional<CimValue>* slot = Slot(windows::ToNarrow(name, CP_UTF8));
        if (slot == nullptr) {
            return windows::Hr(WBEM_E_NOT_FOUND);
        }
        slot->reset();
        return WBEM_S_RESET_TO_DEFAULT;
    });
}

HRESULT InstanceObject::Clone(IWbemClassObject** copy) {
    if (copy == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const auto made = windows::MakeObject<InstanceObject>(type_);
        made->values_ = values_;
        made->putLog_ = putLog_;
        *copy = windows::ComPtr<InstanceObject>(made).Detach();
        return WBEM_S_NO_ERROR;
    });
}

}  // namespace qv::service
