#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/UnsupportedObject.h"
#include "qvsata/service/CimValue.h"

namespace qv::service {

/// A property as IWbemClassObject shows it.
struct ObjectProperty {
    std::string name;
    CimType type = CimType::string;
    bool isArray = false;
    CimValue value;
    bool isKey = false;
    bool isInherited = false;  ///< declared by an ancestor of the object's class
};

/// Base of the service's objects: answers what is read of an IWbemClassObject through three
/// questions that a derived class answers, and refuses what changes one. Reading may be done from
/// several threads at once; an enumeration belongs to one thread.
class ReadableObject : public windows::UnsupportedObject {
public:
    /// A property, system properties ("__...") included, by name in any letter case.
    virtual std::optional<ObjectProperty> Find(std::string_view name) const = 0;

    /// The names of the properties, in order, without the system properties.
    virtual std::vector<std::string> Names() const = 0;

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

protected:
    /// The object in MOF, in UTF-8.
    virtual std::string MofText() const;

private:
    std::vector<std::string> Choose(LONG flags) const;

    std::optional<std::vector<std::string>> enumerated_;  ///< while an enumeration is on
    std::size_t next_ = 0;
};

/// The names of the system properties, in the order in which an enumeration lists them.
inline constexpr std::array<std::string_view, 10> systemPropertyNames{
    "__GENUS",          "__CLASS",      "__SUPERCLASS", "__DYNASTY",   "__RELPATH",
    "__PROPERTY_COUNT", "__DERIVATION", "__SERVER",     "__NAMESPACE", "__PATH"};

/// Whether the name is one of the management service's own: "__CLASS" and the like.
bool IsSystemName(std::string_view name);

}  // namespace qv::service
