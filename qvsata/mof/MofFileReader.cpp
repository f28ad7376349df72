#include "qvsata/mof/MofFileReader.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "qvsata/mof/MofClassUpdate.h"
#include "qvsata/mof/MofInstanceRules.h"
#include "qvsata/mof/MofPragmas.h"
#include "qvsata/mof/MofPropertyRules.h"
#include "qvsata/mof/MofQualifiers.h"
#include "qvsata/mof/MofSchemaGaps.h"
#include "qvsata/mof/MofValue.h"
#include "source/Text.h"

namespace qv::service {
namespace {

constexpr std::array valueTypes{
    CimType::sint8,  CimType::uint8,  CimType::sint16,  CimType::uint16,   CimType::sint32,
    CimType::uint32, CimType::sint64, CimType::uint64,  CimType::real32,   CimType::real64,
    CimType::string, CimType::char16, CimType::boolean, CimType::datetime, CimType::object,
};

/// Bounds what a chain of classes costs: what a class inherits is looked up in its ancestors.
/// Schemas have about ten.
constexpr std::size_t mostAncestors = 256;

/// Applies the declarations of one file.
class FileReader {
public:
    FileReader(std::string_view fileName, Namespaces& namespaces,
               std::vector<PendingReference>& references)
        : fileName_(fileName), namespaces_(namespaces), references_(references) {}

    void Read(const std::vector<MofDeclaration>& declarations) {
        for (std::span<const MofDeclaration> rest(declarations); !rest.empty();
             rest = rest.subspan(1)) {
            rest_ = rest;
            std::visit([this](const auto& one) { Apply(one); }, rest.front());
        }
    }

private:
    void Apply(const MofPragma& pragma) {
        CheckPragma(pragma, fileName_);
        const auto is = [&pragma](std::string_view name) {
            return EqualsIgnoringCase(pragma.name, name);
        };
        const auto has = [&pragma](std::string_view flag) {
            return std::ranges::any_of(pragma.arguments, [flag](const std::string& argument) {
                return EqualsIgnoringCase(argument, flag);
            });
        };
        if (is("namespace")) {
            namespacePath_ = pragma.arguments.front();
        } else if (is("classflags")) {
            classFlags_ = {has("createonly"), has("updateonly"),
                           has("safeupdate") || has("forceupdate")};
        } else if (is("instanceflags")) {
            instancesAreNew_ = has("createonly");
            instancesArePresent_ = has("updateonly");
        } else if (is("deleteclass")) {
            CheckRemoved(pragma, Repository().RemoveClass(pragma.arguments.front()));
        } else if (is("deleteinstance")) {
            CheckRemoved(pragma, Repository().RemoveInstance(pragma.arguments.front()));
        }
    }

    void Apply(const MofClass& written) {
        CheckNew(written);
        CheckSuperclass(written);
        ClassDefinition definition;
        definition.name = written.name;
        definition.superclass = written.superclass;
        definition.hasMethods = written.hasMethods;
        definition.qualifiers =
            ReadQualifiers(written.qualifiers, QualifierOwner::classOrProperty, fileName_);
        for (const MofProperty& property : written.properties) {
            if (definition.properties.size() == mostProperties) {
                const ClassBreach breach = TooManyProperties(written.name);
                Fail(written.position, breach.what, breach.status);
            }
            if (FindDefinition(definition.properties, property.name) != nullptr) {
                Fail(property.position, "property " + property.name + " is declared twice",
                     &mof_status::duplicateProperty);
            }
            definition.properties.push_back(Define(property, written.name));
        }
        if (const auto breach = FindBreach(definition, Repository())) {
            Fail(PlaceOf(*breach, written), breach->what, breach->status);
        }
        CollectReferences(written, definition);
        if (Repository().Find(written.name) == nullptr) {
            Repository().Add(std::move(definition));
        } else {
            Update(written, std::move(definition));
        }
        defined_.insert(Key(written));
    }

    void Apply(const MofInstance& written) {
        const DefinedClassPtr type = Repository().FindDefined(written.className);
        if (type == nullptr) {
            Fail(written.position, "class " + written.className + " is not defined",
                 &mof_status::invalidClass);
        }
        if (HasQualifier(type->Definition().qualifiers, "abstract")) {
            Fail(written.position, "class " + written.className + " is abstract");
        }
        ReadQualifiers(written.qualifiers, QualifierOwner::instance, fileName_);
        InstanceDefinition instance;
        instance.className = type->Definition().name;
        for (const MofInstanceValue& value : written.values) {
            const PropertyDefinition* const property = type->FindProperty(value.property);
            if (property == nullptr) {
                Fail(value.position,
                     "class " + written.className + " has no property " + value.property);
            }
            if (instance.Find(property->name) != nullptr) {
                Fail(value.position, "property " + value.property + " has a value already");
            }
            instance.values.emplace_back(property->name, Value(value.value, *property));
        }
        AddInstance(written, std::move(instance));
    }

    [[noreturn]] void Fail(MofPosition position, const std::string& what,
                           const MofStatus* status = nullptr) const {
        if (status != nullptr) {
            throw MofError(fileName_, position, what, *status);
        }
        throw MofError(fileName_, position, what);
    }

    ClassRepository& Repository() { return namespaces_.Of(namespacePath_); }

    void CheckRemoved(const MofPragma& pragma, bool removed) const {
        if (!removed && !EqualsIgnoringCase(pragma.arguments[1], "nofail")) {
            Fail(pragma.position, "nothing to delete: " + pragma.arguments.front());
        }
    }

    std::string Key(const MofClass& written) const {
        return namespacePath_ + ':' + FoldCase(written.name);
    }

    void CheckNew(const MofClass& written) {
        const bool isPresent = Repository().Find(written.name) != nullptr;
        const bool isFixed = written.name.starts_with("__") || defined_.contains(Key(written));
        if (isPresent && isFixed) {
            Fail(written.position, "class " + written.name + " is defined already");
        }
        if (classFlags_.createOnly && isPresent) {
            const std::string gaps = SchemaGaps(rest_, Repository());
            Fail(written.position,
                 "class " + written.name + " is in the namespace already" +
                     (gaps.empty() ? "" : ", which lacks " + gaps),
                 &mof_status::alreadyExists);
        }
        if (classFlags_.updateOnly && !isPresent) {
            Fail(written.position, "class " + written.name + " is not in the namespace");
        }
    }

    void CheckSuperclass(const MofClass& written) {
        const DefinedClassPtr parent = Repository().FindDefined(written.superclass);
        if (EqualsIgnoringCase(written.superclass, written.name) ||
            (parent && parent->IsA(written.name))) {
            Fail(written.superclassPosition, "class " + written.name + " derives from itself",
                 &mof_status::circularReference);
        }
        if (!written.superclass.empty() && !parent) {
            Fail(written.superclassPosition, "superclass " + written.superclass + " is not defined",
                 &mof_status::invalidSuperclass);
        }
        if (parent && parent->AncestorCount() >= mostAncestors) {
            Fail(written.superclassPosition, "class " + written.name + " has more than " +
                                                 std::to_string(mostAncestors) + " ancestors");
        }
    }

    void Update(const MofClass& written, ClassDefinition definition) {
        if (const auto breach = FindUpdateBreach(definition, Repository(), classFlags_)) {
            Fail(written.position, breach->what, breach->status);
        }
        Repository().Replace(std::move(definition));
    }

    static MofPosition PlaceOf(const ClassBreach& breach, const MofClass& written) {
        const auto property =
            std::ranges::find_if(written.properties, [&breach](const MofProperty& one) {
                return EqualsIgnoringCase(one.name, breach.property);
            });
        if (property != written.properties.end()) {
            return property->position;
        }
        const auto qualifier =
            std::ranges::find_if(written.qualifiers, [&breach](const MofQualifier& one) {
                return EqualsIgnoringCase(one.name, breach.qualifier);
            });
        return qualifier == written.qualifiers.end() ? written.position : qualifier->position;
    }

    PropertyDefinition Define(const MofProperty& written, const std::string& className) {
        PropertyDefinition property;
        property.name = written.name;
        property.isArray = written.isArray;
        property.declaringClass = className;
        property.qualifiers =
            ReadQualifiers(written.qualifiers, QualifierOwner::classOrProperty, fileName_);
        property.isKey = HasQualifier(property.qualifiers, "key");
        if (written.isReference) {
            property.type = CimType::reference;
            property.referenceClass = written.typeName;
        } else {
            const auto type = std::ranges::find_if(valueTypes, [&written](CimType candidate) {
                return EqualsIgnoringCase(CimTypeName(candidate), written.typeName);
            });
            if (type == valueTypes.end()) {
                Fail(written.typePosition, "unknown type " + written.typeName,
                     &mof_status::unrecognizedType);
            }
            property.type = *type;
        }
        if (written.defaultValue) {
            property.defaultValue = Value(*written.defaultValue, property);
        }
        return property;
    }

    void CollectReferences(const MofClass& written, const ClassDefinition& definition) {
        const DefinedClassPtr parent = Repository().FindDefined(definition.superclass);
        for (std::size_t at = 0; at < definition.properties.size(); ++at) {
            const PropertyDefinition& own = definition.properties[at];
            if (own.type == CimType::reference) {
                const PropertyDefinition* const overridden =
                    parent ? parent->FindProperty(own.name) : nullptr;
                references_.push_back({std::string(fileName_), written.properties[at].typePosition,
                                       namespacePath_, definition.name, own.name,
                                       own.referenceClass,
                                       overridden == nullptr ? "" : overridden->referenceClass});
            }
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
            Fail(written.position,
                 "property " + property.name + " takes a value of type " + TypeText(property),
                 &ValueStatus(written, property.type, property.isArray));
        }
        return *std::move(value);
    }

    void AddInstance(const MofInstance& written, InstanceDefinition instance) {
        if (const auto breach = FindBreach(instance, Repository())) {
            Fail(written.position, breach->what, breach->status);
        }
        const std::string path = Repository().RelativePath(instance);
        const bool isPresent = Repository().HasInstance(path);
        if (instancesAreNew_ && isPresent) {
            Fail(written.position, path + " is in the namespace already",
                 &mof_status::alreadyExists);
        }
        if (instancesArePresent_ && !isPresent) {
            Fail(written.position, path + " is not in the namespace");
        }
        if (!written.alias.empty() && !aliases_.emplace(written.alias, path).second) {
            Fail(written.position, "alias $" + written.alias + " is defined already",
                 &mof_status::multipleAliases);
        }
        Repository().Add(std::move(instance));
    }

    std::string_view fileName_;
    Namespaces& namespaces_;
    std::vector<PendingReference>& references_;
    std::string namespacePath_ = "root\\default";
    ClassFlags classFlags_;
    bool instancesAreNew_ = false;
    bool instancesArePresent_ = false;
    std::span<const MofDeclaration> rest_;  ///< the declaration that is applied, and what follows
    std::set<std::string, std::less<>> defined_;  ///< the classes that the file defined
    std::map<std::string, std::string, std::less<>> aliases_;  ///< relative paths by alias
};

}  // namespace

void ApplyMof(const std::vector<MofDeclaration>& declarations, std::string_view fileName,
              Namespaces& namespaces, std::vector<PendingReference>& references) {
    FileReader(fileName, namespaces, references).Read(declarations);
}

}  // namespace qv::service
