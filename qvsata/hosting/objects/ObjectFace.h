#pragma once

#include <optional>
#include <string>
#include <vector>

#include "qvsata/cim/Object.h"
#include "qvsata/hosting/objects/UnsupportedObject.h"

namespace qv::service {

/// An object of the service as COM sees it: answers what is read of an IWbemClassObject and refuses
/// what changes one. Reading may be done from several threads at once; an enumeration belongs to
/// one thread.
class ObjectFace : public UnsupportedObject {
public:
    explicit ObjectFace(ObjectPtr object) : object_(std::move(object)) {}

    /// Returns the object behind an interface pointer; null when it is none of the service's.
    static ObjectPtr Behind(IUnknown& object);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;

    /// WBEM_E_NOT_FOUND for a name that the object lacks; a property without a value is VT_NULL.
    STDMETHODIMP Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE* type,
                     LONG* flavor) override;
    /// Chooses by origin, keys and references; a choice by qualifier is not supported.
    STDMETHODIMP GetNames(LPCWSTR qualifier, LONG flags, VARIANT* qualifierValue,
                          SAFEARRAY** names) override;
    /// Chooses as GetNames does.
    STDMETHODIMP BeginEnumeration(LONG flags) override;
    STDMETHODIMP Next(LONG flags, BSTR* name, VARIANT* value, CIMTYPE* type, LONG* flavor) override;
    STDMETHODIMP EndEnumeration() override;
    /// The object in MOF.
    STDMETHODIMP GetObjectText(LONG flags, BSTR* text) override;
    STDMETHODIMP InheritsFrom(LPCWSTR ancestor) override;
    /// The copy shares what cannot change.
    STDMETHODIMP Clone(IWbemClassObject** copy) override;

private:
    std::vector<std::string> Choose(LONG flags) const;

    ObjectPtr object_;
    std::optional<std::vector<std::string>> enumerated_;  ///< while an enumeration is on
    std::size_t next_ = 0;
};

/// Returns an object as COM sees it: a class definition can be spawned from, an instance or a row
/// can only be read.
windows::ComPtr<IWbemClassObject> FaceOf(const ObjectPtr& object);

}  // namespace qv::service
