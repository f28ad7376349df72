#include <algorithm>
#include <iterator>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/Chooser.h"
#include "qvsata/mof/MofParser.h"
#include "qvsata/mof/MofReader.h"
#include "qvsata/mof/MofText.h"
#include "qvsata/mof/MofValue.h"
#include "qvsata/service/StatedInstances.h"
#include "source/Text.h"

namespace qv::fuzz {
namespace {

using namespace service;

constexpr std::string_view nameSpace = R"(root\default)";

NamespaceClasses ClassesOf(const Namespaces& namespaces) {
    return NamespaceClasses(*namespaces.Find(nameSpace), "SRV", nameSpace);
}

ObjectList InstancesOf(const Namespaces& namespaces) {
    const NamespaceClasses classes = ClassesOf(namespaces);
    const StatedInstances stated(*namespaces.Find(nameSpace), classes);
    ObjectList instances;
    for (const ResolvedClassPtr& type : classes.Listed()) {
        std::ranges::copy(stated.Enumerate(type).objects, std::back_inserter(instances));
    }
    return instances;
}

// The class of an instance and the values of all its properties.
using InstanceValues = std::pair<std::string, std::vector<std::pair<std::string, CimValue>>>;

InstanceValues ValuesOf(const ObjectPtr& instance) {
    InstanceValues values{instance->ClassName(), {}};
    for (ObjectProperty& property : PropertiesOf(*instance)) {
        values.second.emplace_back(std::move(property.name), std::move(property.value));
    }
    return values;
}

// Returns whether a value is null where the class has a default. Such a null is not written.
bool HasNullForDefault(const ObjectPtr& instance, const NamespaceClasses& classes) {
    return std::ranges::any_of(
        classes.Find(instance->ClassName())->Properties(), [&](const PropertyDefinition& property) {
            const auto stated = instance->Find(property.name);
            return !std::holds_alternative<std::monostate>(property.defaultValue) && stated &&
                   std::holds_alternative<std::monostate>(stated->value);
        });
}

Namespaces WithoutInstances(Namespaces namespaces) {
    ClassRepository& repository = namespaces.Of(nameSpace);
    while (!repository.Instances().empty()) {
        repository.RemoveInstance(repository.RelativePath(repository.Instances().front()));
    }
    return namespaces;
}

// Qualifiers are written without their flavors.
bool IsWritten(const Qualifier& qualifier, const MofQualifier& read) {
    return read.name == qualifier.name && QualifierValue(read.value) == qualifier.value;
}

bool AreWritten(std::span<const Qualifier> qualifiers, const std::vector<MofQualifier>& read) {
    return std::ranges::equal(
        qualifiers, read,
        [](const Qualifier& one, const MofQualifier& other) { return IsWritten(one, other); });
}

bool IsWritten(const PropertyDefinition& property, const MofProperty& read) {
    const bool isReference = property.type == CimType::reference;
    const CimValue value =
        read.defaultValue
            ? ToCimValue(*read.defaultValue, property.type, property.isArray).value_or(CimValue())
            : CimValue();
    return read.name == property.name && read.isArray == property.isArray &&
           read.isReference == isReference &&
           read.typeName == (isReference ? property.referenceClass : CimTypeName(property.type)) &&
           value == property.defaultValue && AreWritten(property.qualifiers, read.qualifiers);
}

bool IsWritten(const ResolvedClass& type, const MofClass& read) {
    PropertyRefs own = type.Properties();
    std::erase_if(own, [&type](const PropertyDefinition& property) {
        return !EqualsIgnoringCase(property.declaringClass, type.name);
    });
    return read.name == type.name && read.superclass == type.Superclass() &&
           AreWritten(type.Qualifiers(), read.qualifiers) &&
           std::ranges::equal(own, read.properties,
                              [](const PropertyDefinition& one, const MofProperty& other) {
                                  return IsWritten(one, other);
                              });
}

void CheckClasses(const Namespaces& namespaces) {
    const NamespaceClasses classes = ClassesOf(namespaces);
    for (const ResolvedClassPtr& type : classes.Listed()) {
        const std::string text = ClassAsMof(*type);
        try {
            const std::vector<MofDeclaration> read = ParseMof(text, "class.mof");
            Require(read.size() == 1 && IsWritten(*type, std::get<MofClass>(read.front())),
                    "a class that is written is read as the same:\n" + text);
        } catch (const MofError& error) {
            throw Finding(std::string(error.what()) + " in a class that was written:\n" + text);
        }
    }
}

void CheckInstances(const Namespaces& namespaces) {
    ObjectList instances = InstancesOf(namespaces);
    std::erase_if(instances, [classes = ClassesOf(namespaces)](const ObjectPtr& instance) {
        return HasNullForDefault(instance, classes);
    });
    std::string text;
    for (const ObjectPtr& instance : instances) {
        text += ObjectAsMof(*instance);
    }
    Namespaces read = WithoutInstances(namespaces);
    try {
        ReadMof(text, "instances.mof", read);
    } catch (const MofError& error) {
        throw Finding(std::string(error.what()) + " in instances that were written:\n" + text);
    }
    Require(std::ranges::equal(InstancesOf(read), instances, {}, ValuesOf, ValuesOf),
            "instances that are written are read as the same:\n" + text);
}

}  // namespace

// A form feed ends a file: the next one changes what is there.
void RunMof(Bytes input) {
    Namespaces namespaces;
    try {
        for (Chooser files(input); !files.AtEnd();) {
            ReadMof(files.Line('\f'), "read.mof", namespaces);
        }
    } catch (const MofError& error) {
        const std::string_view message = error.what();
        Require(message.starts_with("read.mof:") && message.find('\n') == std::string_view::npos,
                "the error is one line that names the file");
        return;
    }
    if (namespaces.Find(nameSpace) != nullptr) {
        CheckClasses(namespaces);
        CheckInstances(namespaces);
    }
}

}  // namespace qv::fuzz
