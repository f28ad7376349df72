#include "qvsata/service/SchemaWalk.h"

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "qvsata/cim/ClassObject.h"
#include "qvsata/service/AssociationRules.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// An association class with a reference that may name an instance of the path's class.
struct SchemaLink {
    ResolvedClassPtr association;
    const PropertyDefinition* role;
};

/// Returns the links of the path's class through classes that are `assocClass` or derive from it.
std::vector<SchemaLink> SchemaLinks(const Namespace& nameSpace, const AssociationQuery& query,
                                    const std::string& assocClass, const std::string& qualifier) {
    const NamespaceClasses& classes = nameSpace.Classes();
    std::vector<SchemaLink> links;
    for (const ResolvedClassPtr& type : ClassesAllowedBy(assocClass, classes)) {
        for (const PropertyDefinition& property : type->Properties()) {
            if (property.type == CimType::reference && Allows(query.role, property.name) &&
                HasRequired(qualifier, type) &&
                classes.IsA(query.path.className, property.referenceClass)) {
                links.push_back({type, &property});
            }
        }
    }
    return links;
}

/// The classes of an answer, each once.
class FoundClasses {
public:
    void Add(const ResolvedClassPtr& type) {
        if (seen_.insert(FoldCase(type->name)).second) {
            answer_.objects.push_back(std::make_shared<const ClassObject>(type));
        }
    }

    Answer Take() { return std::move(answer_); }

private:
    std::set<std::string> seen_;
    Answer answer_;
};

}  // namespace

Answer SchemaAssociators(const Namespace& nameSpace, const AssociatorsQuery& query) {
    const NamespaceClasses& classes = nameSpace.Classes();
    FoundClasses found;
    for (const SchemaLink& link :
         SchemaLinks(nameSpace, query, query.assocClass, query.requiredAssocQualifier)) {
        for (const PropertyDefinition& end : link.association->Properties()) {
            const ResolvedClassPtr type = classes.Find(end.referenceClass);
            if (type && &end != link.role && Allows(query.resultRole, end.name) &&
                HasRequired(query.requiredQualifier, type) &&
                (query.resultClass.empty() || type->IsA(query.resultClass))) {
                found.Add(type);
            }
        }
    }
    return found.Take();
}

Answer SchemaReferences(const Namespace& nameSpace, const ReferencesQuery& query) {
    FoundClasses found;
    for (const SchemaLink& link :
         SchemaLinks(nameSpace, query, query.resultClass, query.requiredQualifier)) {
        found.Add(link.association);
    }
    return found.Take();
}

}  // namespace qv::service
