#include "qvsata/mof/MofSchemaGaps.h"

#include <algorithm>

#include "source/Text.h"

namespace qv::service {
namespace {

void Append(std::string& list, const std::string& name) {
    list += (list.empty() ? "" : ", ") + name;
}

bool IsAbstract(const MofClass& wanted) {
    return std::ranges::any_of(wanted.qualifiers, [](const MofQualifier& qualifier) {
        return EqualsIgnoringCase(qualifier.name, "abstract");
    });
}

}  // namespace

std::string SchemaGaps(std::span<const MofDeclaration> declarations,
                       const ClassRepository& classes) {
    std::string gaps;
    for (const MofDeclaration& declaration : declarations) {
        const auto* const wanted = std::get_if<MofClass>(&declaration);
        if (wanted == nullptr) {
            continue;
        }
        const DefinedClassPtr present = classes.FindDefined(wanted->name);
        if (present == nullptr) {
            Append(gaps, wanted->name);
            continue;
        }
        if (IsAbstract(*wanted) && present->FindClassQualifier("abstract") == nullptr) {
            Append(gaps, "Abstract of " + wanted->name);
        }
        for (const MofProperty& property : wanted->properties) {
            if (present->FindProperty(property.name) == nullptr) {
                Append(gaps, wanted->name + '.' + property.name);
            }
        }
    }
    return gaps;
}

}  // namespace qv::service
