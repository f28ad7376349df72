#pragma once

#include <span>
#include <string>
#include <vector>

#include "qvsata/service/com/ReadableObject.h"
#include "qvsata/service/com/ResolvedClass.h"

namespace qv::service {

/// One call of Put on an instance: what was handed over, and what became of it.
struct PutCall {
    std::string name;         ///< as the caller spelled it
    VARTYPE variantType = 0;  ///< VT_NULL also for a null pointer
    CimValue value;  ///< as it was handed over; a boolean as its number (true may be 1 or -1)
    HRESULT result = 0;
};

/// An instance of a class of the embedded management service: empty when spawned, its class's
/// default values showing through. Values are put by the rules of PutRules.h.
///
/// One thread may put; when that is done several may read.
class InstanceObject final : public ReadableObject {
public:
    explicit InstanceObject(ResolvedClassPtr type);

    /// The InstanceObject behind an interface pointer; null for an object of any other kind.
    static InstanceObject* From(IUnknown* object);

    const ResolvedClass& Class() const { return *type_; }

    /// The calls of Put so far, in order, those that were refused included.
    std::span<const PutCall> PutLog() const { return putLog_; }

    /// `Class.Key="value",Key2=5` with the keys in alphabetical order; nothing when there are no
    /// keys or one has no value.
    std::optional<std::string> RelativePath() const;

    /// The same with the keys in the order in which they were put, as a provider that compares
    /// paths as text has it: backslashes of texts are not escaped, but those of references are.
    std::string PathAsPut() const;

    /// Sets a value that is in the form of its type; a property that the class lacks is left out.
    void Set(std::string_view name, CimValue value);

    std::optional<ObjectProperty> Find(std::string_view name) const override;
    std::vector<std::string> Names() const override;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    /// WBEM_E_NOT_FOUND for a property that the class does not define, WBEM_E_READ_ONLY for a
    /// system property; neither code is documented. `type` must be 0, as documented for instances.
    STDMETHODIMP Put(LPCWSTR name, LONG flags, VARIANT* value, CIMTYPE type) override;
    /// Gives the property its default value back.
    STDMETHODIMP Delete(LPCWSTR name) override;
    STDMETHODIMP Clone(IWbemClassObject** copy) override;

private:
    HRESULT PutValue(std::string_view name, const VARIANT& value);
    std::optional<CimValue>* Slot(std::string_view name);

    ResolvedClassPtr type_;
    std::vector<std::optional<CimValue>> values_;  ///< in the order of the class's properties
    std::vector<PutCall> putLog_;
};

}  // namespace qv::service
