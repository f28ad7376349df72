#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/service/CimValue.h"

namespace qv::service {

/// A qualifier of a class or of a property. One that is written without a value is TRUE.
struct Qualifier {
    std::string name;
    CimValue value;
    bool toSubclass = false;      ///< subclasses have it too, unless they state their own
    bool toInstance = false;      ///< instances show it
    bool mayBeOverridden = true;  ///< subclasses may state another value of it
};

/// A property as a class declares it, or as ClassRepository::Properties resolves it.
struct PropertyDefinition {
    std::string name;
    CimType type = CimType::string;
    bool isArray = false;
    bool isKey = false;
    std::string referenceClass;  ///< the class a reference points to; empty for other types
    CimValue defaultValue;       ///< std::monostate without one
    std::string declaringClass;  ///< the class that declares it; resolved: the topmost such class
    std::vector<Qualifier> qualifiers;  ///< all of them, Key and Override included
};

/// A class as it is written in a MOF file: what it inherits is not repeated.
struct ClassDefinition {
    std::string name;
    std::string superclass;  ///< empty for a root class
    std::vector<Qualifier> qualifiers;
    std::vector<PropertyDefinition> properties;
    bool hasMethods = false;  ///< methods themselves are not kept
};

/// An instance that is written in a MOF file, only with the properties it states. A value has the
/// form that the property's type asks for; a reference written as an alias is the relative path of
/// the instance that the alias names.
struct InstanceDefinition {
    std::string className;
    std::vector<std::pair<std::string, CimValue>> values;

    /// The value of a property, its name taken without regard to case; null when it is not stated.
    const CimValue* Find(std::string_view property) const;
};

/// The qualifier of that name, taken without regard to case; null when there is none.
const Qualifier* FindQualifier(const std::vector<Qualifier>& qualifiers, std::string_view name);

/// Whether the qualifier is there with another value than FALSE.
bool HasQualifier(const std::vector<Qualifier>& qualifiers, std::string_view name);

/// The name of a type as MOF spells it ("uint16"; "ref" for a reference).
std::string_view CimTypeName(CimType type);

}  // namespace qv::service
