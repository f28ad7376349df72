#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// A qualifier of a class or of a property. A qualifier written without a value is TRUE.
struct Qualifier {
    std::string name;
    CimValue value;
    bool toSubclass = false;      ///< subclasses inherit it, unless they state their own
    bool toInstance = false;      ///< instances have it too
    bool mayBeOverridden = true;  ///< subclasses may state another value of it
};

/// A property as a class declares it, or as ClassRepository::Properties resolves it.
struct PropertyDefinition {
    std::string name;
    CimType type = CimType::string;
    bool isArray = false;
    bool isKey = false;
    std::string referenceClass;         ///< the class a reference points to; empty for other types
    CimValue defaultValue;              ///< std::monostate if it has none
    std::string declaringClass;         ///< that declares it; if resolved, the topmost one
    std::vector<Qualifier> qualifiers;  ///< all of them, including Key and Override
};

/// A class as written in a MOF file, without what it inherits.
struct ClassDefinition {
    std::string name;
    std::string superclass;  ///< empty for a root class
    std::vector<Qualifier> qualifiers;
    std::vector<PropertyDefinition> properties;
    bool hasMethods = false;  ///< the methods themselves are not stored
};

/// An instance written in a MOF file, with only the properties that it states. A value has the form
/// that the property's type requires. A reference written as an alias holds the relative path of
/// the instance that the alias names.
struct InstanceDefinition {
    std::string className;
    std::vector<std::pair<std::string, CimValue>> values;

    /// Returns the value of a property by name, ignoring case; null if it is not stated.
    const CimValue* Find(std::string_view property) const;
};

/// Returns the qualifier of that name, ignoring case; null if there is none.
const Qualifier* FindQualifier(const std::vector<Qualifier>& qualifiers, std::string_view name);

/// Returns whether the qualifier is present with a value other than FALSE.
bool HasQualifier(const std::vector<Qualifier>& qualifiers, std::string_view name);

/// Returns the MOF name of a type ("uint16"; "ref" for a reference).
std::string_view CimTypeName(CimType type);

}  // namespace qv::service
