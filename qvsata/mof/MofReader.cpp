#include "qvsata/mof/MofReader.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <utility>

#include "qvsata/mof/MofParser.h"
#include "qvsata/mof/MofValue.h"
#include "source/Text.h"

namespace qv::service {
namespace {

constexpr std::array valueTypes{
    CimType::sint8,  CimType::uint8,  CimType::sint16,  CimType::uint16,   CimType::sint32,
    CimType::uint32, CimType::sint64, CimType::uint64,  CimType::real32,   CimType::real64,
    CimType::string, CimType::char16, CimType::boolean, CimType::datetime, CimType::object,
};

/// Pragmas that concern a compiler or a repository on disk, and change nothing that is read here.
constexpr std::array<std::string_view, 5> pragmasWithoutEffect{
    "autorecover", "classflags", "instanceflags", "locale", "instancelocale"};

/// A reference, to be looked at when every class is known.
struct PendingReference {
    std::string fileName;
    MofPosition position;
    std::string namespacePath;
    std::string className;
    std::string property;
    std::string referenceClass;
    std::string overriddenClass;  ///< what the overridden reference points to; empty without one
};

std::string TypeText(CimType type, bool isArray) {
    return std::string(CimTypeName(type)) + (isArray ? "[]" : "");
}

const PropertyDefinition* FindProperty(const std::vector<PropertyDefinition>& properties,
                                       std::string_view name) {
    const auto found = std::ranges::find_if(properties, [name](const PropertyDefinition& property) {
        return EqualsIgnoringCase(property.name, name);
    });
    return found == properties.end() ? nullptr : &*found;
}

/// Applies the declarations of one file.
class FileReader {
public:
    FileReader(std::string_view fileName, Namespaces& namespaces,
               std::vector<PendingReference>& references)
        : fileName_(fileName), namespaces_(namespaces), references_(references) {}

    void Apply(const MofPragma& pragma) {
        const auto is = [&pragma](std::string_view name) {
            return EqualsIgnoringCase(pragma.name, name);
        };
        if (is("namespace")) {
            namespacePath_ = FirstArgument(pragma);
        } else if (is("deleteclass")) {
            const bool removed = Repository().RemoveClass(FirstArgument(pragma));
            CheckRemoved(pragma, removed);
        } else if (is("deleteinstance")) {
            const bool removed = Repository().RemoveInstance(FirstArgument(pragma));
            CheckRemoved(pragma, removed);
        } else if (!std::ranges::any_of(pragmasWithoutEffect, is)) {
            Fail(pragma.position, "unknown pragma " + pragma.name);
        }
    }

    void Apply(const MofClass& written) {
        if (Repository().Find(written.name) != nullptr) {
            Fail(written.position, "class " + written.name + " is defined already");
        }
        if (!written.superclass.empty() && Repository().Find(written.superclass) == nullptr) {
            Fail(written.superclassPosition,
                 "superclass " + written.superclass + " is not defined");
        }
        ClassDefinition definition;
        definition.name = written.name;
        definition.superclass = written.superclass;
        definition.qualifiers = Qualifiers(written.qualifiers);
        const std::vector<PropertyDefinition> inherited =
            Repository().Properties(written.superclass);
        for (const MofProperty& property : written.properties) {
            if (FindProperty(definition.properties, property.name) != nullptr) {
                Fail(property.position, "property " + property.name + " is declared twice");
            }
            definition.properties.push_back(Define(property, written.name));
            CheckAgainstInherited(property, definition.properties.back(), inherited);
        }
        Repository().Add(std::move(definition));
    }

    void Apply(const MofInstance& written) {
        const ClassDefinition* const definition = Repository().Find(written.className);
        if (definition == nullptr) {
            Fail(written.position, "class " + written.className + " is not defined");
        }
        if (HasQualifier(definition->qualifiers, "abstract")) {
            Fail(written.position, "class " + written.className + " is abstract");
        }
        InstanceDefinition instance;
        instance.className = definition->name;
        const std::vector<PropertyDefinition> properties =
            Repository().Properties(definition->name);
        for (const MofInstanceValue& value : written.values) {
            const PropertyDefinition* const property = FindProperty(properties, value.property);
            if (property == nullptr) {
                Fail(value.position,
                     "class " + written.className + " has no property " + value.property);
            }
            if (instance.Find(property->name) != nullptr) {
                Fail(value.position, "property " + value.property + " has a value already");
            }
            instance.values.emplace_back(property->name, Value(value.value, *property));
        }
        AddInstance(written, std::move(instance), properties);
    }

private:
    [[noreturn]] void Fail(MofPosition position, const std::string& what) const {
        throw MofError(fileName_, position, what);
    }

    ClassRepository& Repository() { return namespaces_.Of(namespacePath_); }

    std::string FirstArgument(const MofPragma& pragma) const {
        if (pragma.arguments.empty()) {
            Fail(pragma.position, "pragma " + pragma.name + " needs an argument");
        }
        return pragma.arguments.front();
    }

    void CheckRemoved(const MofPragma& pragma, bool removed) const {
        const bool mayBeAbsent =
            pragma.arguments.size() > 1 && EqualsIgnoringCase(pragma.arguments[1], "nofail");
        if (!removed && !mayBeAbsent) {
            Fail(pragma.position, "nothing to delete: " + pragma.arguments.front());
        }
    }

    std::vector<Qualifier> Qualifiers(const std::vector<MofQualifier>& written) const {
        std::vector<Qualifier> qualifiers;
        for (const MofQualifier& one : written) {
            const std::optional<CimValue> value = QualifierValue(one.value);
            if (!value) {
                Fail(one.position, "qualifier " + one.name + " has no usable value");
            }
            if (FindQualifier(qualifiers, one.name) != nullptr) {
                Fail(one.position, "qualifier " + one.name + " is stated twice");
            }
            qualifiers.push_back({one.name, *value, one.toSubclass, one.toInstance});
        }
        return qualifiers;
    }

    PropertyDefinition Define(const MofProperty& written, const std::string& className) {
        PropertyDefinition property;
        property.name = written.name;
        property.isArray = written.isArray;
        property.declaringClass = className;
        property.qualifiers = Qualifiers(written.qualifiers);
        property.isKey = HasQualifier(property.qualifiers, "key");
        if (written.isReference) {
            property.type = CimType::reference;
            property.referenceClass = written.typeName;
        } else {
            const auto type = std::ranges::find_if(valueTypes, [&written](CimType candidate) {
                return EqualsIgnoringCase(CimTypeName(candidate), written.typeName);
            });
            if (type == valueTypes.end()) {
                Fail(written.typePosition, "unknown type " + written.typeName);
            }
            property.type = *type;
        }
        if (property.isKey && property.isArray) {
            Fail(written.position, "key " + written.name + " is an array");
        }
        if (property.isKey &&
            (property.type == CimType::real32 || property.type == CimType::real64 ||
             property.type == CimType::object)) {
            Fail(written.position,
                 "key " + written.name + " is of type " + TypeText(property.type, false));
        }
        if (written.defaultValue) {
            property.defaultValue = Value(*written.defaultValue, property);
        }
        return property;
    }

    void CheckAgainstInherited(const MofProperty& written, const PropertyDefinition& property,
                               const std::vector<PropertyDefinition>& inherited) {
        const PropertyDefinition* const overridden = FindProperty(inherited, property.name);
        const bool says = HasQualifier(property.qualifiers, "override");
        if (overridden != nullptr) {
            CheckOverride(written, property, *overridden, says);
        } else if (says) {
            Fail(written.position, "property " + property.name + " overrides nothing");
        }
        const bool wasKey = overridden != nullptr && overridden->isKey;
        if (property.isKey && !wasKey &&
            std::ranges::any_of(inherited, &PropertyDefinition::isKey)) {
            Fail(written.position, "property " + property.name + " adds to inherited keys");
        }
        if (property.type == CimType::reference) {
            references_.push_back({std::string(fileName_), written.typePosition, namespacePath_,
                                   property.declaringClass, property.name, property.referenceClass,
                                   overridden == nullptr ? "" : overridden->referenceClass});
        }
    }

    void CheckOverride(const MofProperty& written, const PropertyDefinition& property,
                       const PropertyDefinition& overridden, bool says) const {
        if (!says) {
            Fail(written.position, "property " + property.name + " of " +
                                       overridden.declaringClass +
                                       " is redeclared without Override");
        }
        if (property.type != overridden.type || property.isArray != overridden.isArray) {
            Fail(written.position, "property " + property.name + " changes its type from " +
                                       TypeText(overridden.type, overridden.isArray) + " to " +
                                       TypeText(property.type, property.isArray));
        }
        const Qualifier* const key = FindQualifier(property.qualifiers, "key");
        if (key != nullptr && overridden.isKey && !property.isKey) {
            Fail(written.position, "property " + property.name + " ceases to be a key");
        }
    }

    CimValue Value(const MofInitializer& written, const PropertyDefinition& property) const {
        if (written.isAlias && property.type == CimType::reference && !property.isArray) {
            const auto& name = std::get<std::string>(written.elements.front().value);
            const auto alias = aliases_.find(name);
            if (alias == aliases_.end()) {
                Fail(written.position, "alias $" + name + " is not defined");
            }
            return alias->second;
        }
        std::optional<CimValue> value = ToCimValue(written, property.type, property.isArray);
        if (!value) {
            Fail(written.position, "property " + property.name + " takes a value of type " +
                                       TypeText(property.type, property.isArray));
        }
        return *std::move(value);
    }

    void AddInstance(const MofInstance& written, InstanceDefinition instance,
                     const std::vector<PropertyDefinition>& properties) {
        for (const PropertyDefinition& property : properties) {
            const CimValue* const value = instance.Find(property.name);
            if (property.isKey && (value == nullptr || value->index() == 0)) {
                Fail(written.position, "key " + property.name + " has no value");
            }
        }
        if (!written.alias.empty() &&
            !aliases_.emplace(written.alias, Repository().RelativePath(instance)).second) {
            Fail(written.position, "alias $" + written.alias + " is defined already");
        }
        Repository().Add(std::move(instance));
    }

    std::string_view fileName_;
    Namespaces& namespaces_;
    std::vector<PendingReference>& references_;
    std::string namespacePath_ = "root\\default";
    std::map<std::string, std::string, std::less<>> aliases_;  ///< relative paths by alias
};

void CheckReference(const PendingReference& reference, const ClassRepository& repository) {
    if (repository.Find(reference.className) == nullptr) {
        return;
    }
    if (repository.Find(reference.referenceClass) == nullptr) {
        throw MofError(reference.fileName, reference.position,
                       "class " + reference.referenceClass + " of the reference " +
                           reference.property + " is not defined");
    }
    if (!reference.overriddenClass.empty() &&
        !repository.IsA(reference.referenceClass, reference.overriddenClass)) {
        throw MofError(reference.fileName, reference.position,
                       "class " + reference.referenceClass + " of the reference " +
                           reference.property + " is no " + reference.overriddenClass);
    }
}

}  // namespace

void ReadMof(std::span<const MofSource> files, Namespaces& namespaces) {
    Namespaces changed = namespaces;
    std::vector<PendingReference> references;
    for (const MofSource& file : files) {
        FileReader reader(file.fileName, changed, references);
        for (const MofDeclaration& declaration : ParseMof(file.text, file.fileName)) {
            std::visit([&reader](const auto& one) { reader.Apply(one); }, declaration);
        }
    }
    for (const PendingReference& reference : references) {
        CheckReference(reference, changed.Of(reference.namespacePath));
    }
    namespaces = std::move(changed);
}

void ReadMof(std::string_view text, std::string_view fileName, Namespaces& namespaces) {
    const std::array files{MofSource{std::string(fileName), std::string(text)}};
    ReadMof(files, namespaces);
}

void ReadMofFiles(std::span<const std::string> paths, Namespaces& namespaces) {
    std::vector<MofSource> files;
    for (const std::string& path : paths) {
        const std::u8string utf8(path.begin(), path.end());
        std::ifstream stream(std::filesystem::path(utf8), std::ios::binary);
        if (!stream) {
            throw MofError(path, {}, "cannot be read");
        }
        std::ostringstream text;
        text << stream.rdbuf();
        files.push_back({path, text.str()});
    }
    ReadMof(files, namespaces);
}

}  // namespace qv::service
