#pragma once

#include <optional>
#include <string>
#include <vector>

#include "qvsata/cim/Object.h"
#include "qvsata/hosting/objects/UnsupportedObject.h"

namespace qv::service {

/// An object of the service as COM sees it. It supports the reading methods of IWbemClassObject and
/// refuses the changing ones. Several threads may read at once; an enumeration belongs to one
/// thread.
class ObjectFace : public UnsupportedObject {
public:
    explicit ObjectFace(ObjectPtr object) : object_(std::move(object)) {}

    /// Returns the object behind an interface pointer; null if it is not one of the service's.
    static ObjectPtr Behind(IUnknown& object);

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;

    /// Returns WBEM_E_NOT_FOUND for a name that the object lacks. A property without a value is
    /// VT_NULL.
    STDMETHODIMP Get(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE* type,
                     LONG* flavor) override;
    /// Filters by origin, keys and references; a filter by qualifier is not supported.
    STDMETHODIMP GetNames(LPCWSTR qualifier, LONG flags, VARIANT* qualifierValue,
                          SAFEARRAY** names) override;
    /// Filters as GetNames does.
    STDMETHODIMP BeginEnumeration(LONG flags) override;
    STDMETHODIMP Next(LONG flags, BSTR* name, VARIANT* value, CIMTYPE* type, LONG* flavor) override;
    STDMETHODIMP EndEnumeration() override;
    /// Returns the object in MOF.
    STDMETHODIMP GetObjectText(LONG flags, BSTR* text) override;
    STDMETHODIMP InheritsFrom(LPCWSTR ancestor) override;
    /// The copy shares the immutable parts.
    STDMETHODIMP Clone(IWbemClassObject** copy) override;

private:
    std::vector<std::string> Choose(LONG flags) const;

    ObjectPtr object_;
    std::optional<std::vector<std::string>> enumerated_;  ///< set during an enumeration
    std::size_t next_ = 0;
};

/// Returns an object as COM sees it: instances can be spawned from a class definition; an instance
/// or a row is read-only.
windows::ComPtr<IWbemClassObject> FaceOf(const ObjectPtr& object);

}  // namespace qv::service
