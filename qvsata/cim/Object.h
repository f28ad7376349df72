#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/CimValue.h"
#include "qvsata/cim/ObjectPath.h"

namespace qv::service {

struct ResolvedClass;

/// A property of an object, as a management client reads it.
struct ObjectProperty {
    std::string name;
    CimType type = CimType::string;
    bool isArray = false;
    CimValue value;
    bool isKey = false;
    bool isInherited = false;  ///< declared by an ancestor of the object's class
};

/// An instance or a class definition of a namespace, from any source. Reading has no side effects
/// and may be done from several threads at once.
class Object {
public:
    virtual ~Object() = default;

    /// Returns a property by name, ignoring case, or a system property ("__CLASS"); nothing if the
    /// object lacks it.
    virtual std::optional<ObjectProperty> Find(std::string_view name) const = 0;

    /// Returns the names of the properties, in order, without the system properties.
    virtual std::vector<std::string> Names() const = 0;

    /// Returns the names of the properties to show to a person: Names(), after the system
    /// properties that a query selected by name.
    virtual std::vector<std::string> ShownNames() const { return Names(); }

    /// Returns the name of the object's class, as its definition spells it.
    virtual std::string ClassName() const;

    /// Returns the references that name an object, in the order of the properties. They are parsed
    /// by each call.
    virtual std::vector<Reference> References() const = 0;

    /// Returns the class that the object defines; null for an instance and for a definition of
    /// which only the properties are known.
    virtual std::shared_ptr<const ResolvedClass> Definition() const { return nullptr; }

    /// Returns the path with the keys in the order in which a provider put them, as a provider that
    /// compares paths as text needs it; nothing for an object that no provider filled.
    virtual std::optional<std::string> PathAsPut() const { return std::nullopt; }
};

using ObjectPtr = std::shared_ptr<const Object>;
using ObjectList = std::vector<ObjectPtr>;

/// The names of the system properties, in the order of an enumeration.
inline constexpr std::array<std::string_view, 10> systemPropertyNames{
    "__GENUS",          "__CLASS",      "__SUPERCLASS", "__DYNASTY",   "__RELPATH",
    "__PROPERTY_COUNT", "__DERIVATION", "__SERVER",     "__NAMESPACE", "__PATH"};

/// Returns whether the name is a system name such as "__CLASS".
bool IsSystemName(std::string_view name);

/// Returns the properties of an object in its order, without the system properties.
std::vector<ObjectProperty> PropertiesOf(const Object& object);

/// Returns the properties to show to a person, see Object::ShownNames.
std::vector<ObjectProperty> ShownPropertiesOf(const Object& object);

/// Returns the text of a property; empty if it has none.
std::string TextOf(const Object& object, std::string_view name);

/// Returns the references among properties: those whose text is an object path.
std::vector<Reference> ReferencesAmong(std::span<const ObjectProperty> properties);

}  // namespace qv::service
