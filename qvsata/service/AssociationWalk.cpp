#include "qvsata/service/AssociationWalk.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

#include "qvsata/cim/ClassObject.h"
#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/cim/Snapshot.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/service/AssociationRules.h"
#include "qvsata/service/SchemaWalk.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// One association instance with a reference that names the requested path.
struct Link {
    ObjectPtr association;
    std::string role;                   ///< of the reference that names the path
    std::vector<Reference> references;  ///< of the association
};

class Walk {
public:
    Walk(const Namespace& nameSpace, const ObjectPath& path) : nameSpace_(nameSpace), path_(path) {}

    /// Returns the links of the path through classes that are `assocClass` or derive from it and
    /// have the qualifier; none if the instances of one of them cannot be read.
    std::vector<Link> Links(const std::string& assocClass, const std::string& role,
                            const std::string& qualifier) {
        std::vector<Link> links;
        for (const ResolvedClassPtr& type : ClassesAllowedBy(assocClass, nameSpace_.Classes())) {
            if (!MayName(type, role) || !HasRequired(qualifier, type)) {
                continue;
            }
            for (const ObjectPtr& association : Candidates(type)) {
                AppendLinks(association, role, links);
            }
            if (failure_ && type->isUndefined && assocClass.empty()) {
                // It is unknown whether the class is an association at all.
                failure_.reset();
            }
            if (failure_) {
                return {};
            }
        }
        return links;
    }

    /// Returns the object that a reference names; null if there is none or the instances of its
    /// class cannot be read, which is a failure. Each class is enumerated at most once.
    ObjectPtr Find(const ObjectPath& path) {
        const ResolvedClassPtr type = nameSpace_.Classes().Find(path.className);
        if (!type) {
            failure_ = {
                status::invalidClass, "unknown class '" + path.className + "'", {}, path.className};
            return nullptr;
        }
        for (const auto& source : nameSpace_.SourcesOf(type)) {
            const std::optional<ObjectPtr> found = source->LookUp(type, path);
            if (ObjectPtr object = found ? *found : FindAmong(*source, type, path)) {
                return object;
            }
        }
        return nullptr;
    }

    /// Returns the failure that ended the walk, if any.
    const std::optional<Answer>& Failure() const { return failure_; }

private:
    struct NamedObject {
        ObjectPath path;
        ObjectPtr object;
    };
    using Named = std::vector<NamedObject>;

    ObjectList Take(const ResolvedClassPtr& type, Answer answer) {
        ObjectList objects = std::move(answer.objects);
        if (!Succeeded(answer.status)) {
            failure_ = {answer.status, std::move(answer.message), {}, type->name};
            objects.clear();
        }
        return objects;
    }

    ObjectList Candidates(const ResolvedClassPtr& type) {
        ObjectList candidates;
        for (const auto& source : nameSpace_.SourcesOf(type)) {
            std::optional<Answer> answer = source->Referencing(type, path_);
            std::ranges::move(Take(type, answer ? std::move(*answer) : source->Enumerate(type)),
                              std::back_inserter(candidates));
        }
        return candidates;
    }

    /// Returns whether a reference of the class can name the path.
    bool MayName(const ResolvedClassPtr& type, const std::string& role) const {
        const NamespaceClasses& classes = nameSpace_.Classes();
        return type->isUndefined ||
               std::ranges::any_of(type->Properties(), [&](const PropertyDefinition& property) {
                   return property.type == CimType::reference && Allows(role, property.name) &&
                          (classes.IsA(path_.className, property.referenceClass) ||
                           classes.IsA(property.referenceClass, path_.className));
               });
    }

    void AppendLinks(const ObjectPtr& association, const std::string& role,
                     std::vector<Link>& links) const {
        const std::vector<Reference> references = association->References();
        for (const Reference& reference : references) {
            if (Allows(role, reference.role) && NamesSameObject(reference.path, path_)) {
                links.push_back({association, reference.role, references});
            }
        }
    }

    ObjectPtr FindAmong(const InstanceSource& source, const ResolvedClassPtr& type,
                        const ObjectPath& path) {
        const auto [known, isNew] = named_.try_emplace({&source, type->name});
        if (isNew) {
            for (const ObjectPtr& object : Take(type, source.Enumerate(type))) {
                if (auto own = ParseObjectPath(TextOf(*object, "__RELPATH"))) {
                    const std::string identity = IdentityOf(*own);
                    known->second[identity].push_back({std::move(*own), object});
                }
            }
        }
        const auto candidates = known->second.find(IdentityOf(path));
        if (candidates == known->second.end()) {
            return nullptr;
        }
        const auto found = std::ranges::find_if(
            candidates->second,
            [&path](const NamedObject& one) { return NamesSameObject(one.path, path); });
        return found == candidates->second.end() ? nullptr : found->object;
    }

    const Namespace& nameSpace_;
    const ObjectPath& path_;
    /// The instances of each enumerated source and class, by the identity of their paths.
    std::map<std::pair<const InstanceSource*, std::string>, std::unordered_map<std::string, Named>>
        named_;
    std::optional<Answer> failure_;
};

/// Collects the results of a query: each object, or each object's class, once.
class Results {
public:
    Results(const Namespace& nameSpace, const AssociationQuery& query)
        : nameSpace_(nameSpace), query_(query) {}

    void Add(const ObjectPtr& object) {
        const std::string className = object->ClassName();
        if (seen_.insert(FoldCase(query_.classDefsOnly ? className : TextOf(*object, "__RELPATH")))
                .second) {
            answer_.objects.push_back(query_.classDefsOnly ? DefinitionOf(className)
                                      : query_.keysOnly    ? SelectKeys(*object)
                                                           : object);
        }
    }

    Answer Take() { return std::move(answer_); }

private:
    ObjectPtr DefinitionOf(const std::string& className) const {
        return std::make_shared<const ClassObject>(nameSpace_.Classes().Find(className));
    }

    const Namespace& nameSpace_;
    const AssociationQuery& query_;
    std::set<std::string> seen_;
    Answer answer_;
};

}  // namespace

Answer AssociatorsOf(const Namespace& nameSpace, const AssociatorsQuery& query) {
    if (auto refusal = RefusalOf(nameSpace, query)) {
        return std::move(*refusal);
    }
    if (query.schemaOnly) {
        return SchemaAssociators(nameSpace, query);
    }
    const NamespaceClasses& classes = nameSpace.Classes();
    Walk walk(nameSpace, query.path);
    Results results(nameSpace, query);
    for (const Link& link :
         walk.Links(query.assocClass, query.role, query.requiredAssocQualifier)) {
        for (const Reference& end : link.references) {
            if (end.role == link.role || !Allows(query.resultRole, end.role) ||
                (!query.resultClass.empty() &&
                 !classes.IsA(end.path.className, query.resultClass)) ||
                !HasRequired(query.requiredQualifier, classes.Find(end.path.className))) {
                continue;
            }
            const ObjectPtr object = walk.Find(end.path);
            if (walk.Failure()) {
                return *walk.Failure();
            }
            if (object) {
                results.Add(object);
            }
        }
    }
    return walk.Failure() ? *walk.Failure() : results.Take();
}

Answer ReferencesOf(const Namespace& nameSpace, const ReferencesQuery& query) {
    if (auto refusal = RefusalOf(nameSpace, query)) {
        return std::move(*refusal);
    }
    if (query.schemaOnly) {
        return SchemaReferences(nameSpace, query);
    }
    Walk walk(nameSpace, query.path);
    Results results(nameSpace, query);
    for (const Link& link : walk.Links(query.resultClass, query.role, query.requiredQualifier)) {
        results.Add(link.association);
    }
    return walk.Failure() ? *walk.Failure() : results.Take();
}

}  // namespace qv::service
