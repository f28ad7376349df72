#include "qvsata/service/com/AssociationWalk.h"

#include <algorithm>
#include <set>

#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/ClassObject.h"
#include "qvsata/service/com/ObjectReading.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// Whether a name that a query may leave out allows `name`.
bool Allows(const std::string& asked, std::string_view name) {
    return asked.empty() || EqualsIgnoringCase(asked, name);
}

/// One association instance in which a reference names the path that was asked for.
struct Link {
    windows::ComPtr<IWbemClassObject> association;
    std::string role;  ///< the reference that names the path
};

/// A reference of an association instance, or nothing when it names nothing.
std::optional<ObjectPath> ReferenceOf(IWbemClassObject& association, const std::string& role) {
    return ParseObjectPath(ReadText(association, role));
}

class Walk {
public:
    Walk(const EmbeddedNamespace& nameSpace, const ObjectPath& path)
        : nameSpace_(nameSpace), path_(path) {}

    /// The links of the path through classes that are, or derive from, `assocClass`; none when
    /// the instances of one of them cannot be had.
    std::vector<Link> Links(const std::string& assocClass, const std::string& role) {
        std::vector<Link> links;
        for (const ClassDefinition& definition : nameSpace_.Classes().Classes()) {
            const ResolvedClassPtr type = nameSpace_.FindClass(definition.name);
            const std::vector<std::string> roles = RolesFor(*type, role);
            if (roles.empty() || (!assocClass.empty() && !type->IsA(assocClass)) ||
                !nameSpace_.IsServed(type->name)) {
                continue;
            }
            const ObjectList instances = InstancesOf(type->name);
            if (failure_) {
                return {};
            }
            for (const auto& association : instances) {
                AppendLinks(association, roles, links);
            }
        }
        return links;
    }

    /// The object that a reference names, or nothing, also when the instances of its class cannot
    /// be had. Each class is enumerated once.
    windows::ComPtr<IWbemClassObject> Find(const ObjectPath& path) {
        const std::string className = FoldCase(path.className);
        auto known = instances_.find(className);
        if (known == instances_.end()) {
            known = instances_.emplace(className, Named(path.className)).first;
        }
        const auto found = std::ranges::find_if(known->second, [&path](const NamedObject& one) {
            return NamesSameObject(one.path, path);
        });
        return found == known->second.end() ? nullptr : found->object;
    }

    /// The failure that ends the walk, if there was one.
    const std::optional<Answer>& Failure() const { return failure_; }

private:
    struct NamedObject {
        ObjectPath path;
        windows::ComPtr<IWbemClassObject> object;
    };

    ObjectList InstancesOf(const std::string& className) {
        Answer answer = nameSpace_.Enumerate(className);
        ObjectList objects = std::move(answer.objects);
        if (FAILED(answer.status)) {
            failure_ = std::move(answer);
            objects.clear();
        }
        return objects;
    }

    /// The references of a class that can name the path.
    std::vector<std::string> RolesFor(const ResolvedClass& type, const std::string& role) const {
        std::vector<std::string> roles;
        for (const PropertyDefinition& property : type.properties) {
            if (property.type == CimType::reference && Allows(role, property.name) &&
                (nameSpace_.Classes().IsA(path_.className, property.referenceClass) ||
                 nameSpace_.Classes().IsA(property.referenceClass, path_.className))) {
                roles.push_back(property.name);
            }
        }
        return roles;
    }

    void AppendLinks(const windows::ComPtr<IWbemClassObject>& association,
                     const std::vector<std::string>& roles, std::vector<Link>& links) const {
        for (const std::string& role : roles) {
            const std::optional<ObjectPath> end = ReferenceOf(*association.Get(), role);
            if (end && NamesSameObject(*end, path_)) {
                links.push_back({association, role});
            }
        }
    }

    std::vector<NamedObject> Named(const std::string& className) {
        std::vector<NamedObject> named;
        for (const auto& object : InstancesOf(className)) {
            if (auto path = ParseObjectPath(ReadText(*object.Get(), "__RELPATH"))) {
                named.push_back({std::move(*path), object});
            }
        }
        return named;
    }

    const EmbeddedNamespace& nameSpace_;
    const ObjectPath& path_;
    std::map<std::string, std::vector<NamedObject>> instances_;
    std::optional<Answer> failure_;
};

/// Collects the results of a query: each object, or each object's class, once.
class Results {
public:
    Results(const EmbeddedNamespace& nameSpace, bool classesOnly)
        : nameSpace_(nameSpace), classesOnly_(classesOnly) {}

    void Add(const windows::ComPtr<IWbemClassObject>& object) {
        const std::string key = ReadText(*object.Get(), classesOnly_ ? "__CLASS" : "__RELPATH");
        if (!seen_.insert(FoldCase(key)).second) {
            return;
        }
        if (classesOnly_) {
            answer_.objects.push_back(windows::MakeObject<ClassObject>(nameSpace_.FindClass(key)));
        } else {
            answer_.objects.push_back(object);
        }
    }

    Answer Take() { return std::move(answer_); }

private:
    const EmbeddedNamespace& nameSpace_;
    bool classesOnly_;
    std::set<std::string> seen_;
    Answer answer_;
};

std::optional<Answer> UnknownClassOf(const EmbeddedNamespace& nameSpace, const ObjectPath& path) {
    if (nameSpace.Classes().Find(path.className) != nullptr) {
        return std::nullopt;
    }
    return Answer{windows::Hr(WBEM_E_NOT_FOUND), "unknown class '" + path.className + "'", {}};
}

bool IsResult(const EmbeddedNamespace& nameSpace, const std::string& className,
              const std::string& wanted) {
    return wanted.empty() || nameSpace.Classes().IsA(className, wanted);
}

}  // namespace

Answer AssociatorsOf(const EmbeddedNamespace& nameSpace, const AssociatorsQuery& query) {
    if (auto unknown = UnknownClassOf(nameSpace, query.path)) {
        return std::move(*unknown);
    }
    Walk walk(nameSpace, query.path);
    Results results(nameSpace, query.classDefsOnly);
    for (const Link& link : walk.Links(query.assocClass, query.role)) {
        const ResolvedClassPtr type =
            nameSpace.FindClass(ReadText(*link.association.Get(), "__CLASS"));
        for (const PropertyDefinition& property : type->properties) {
            if (property.type != CimType::reference || property.name == link.role ||
                !Allows(query.resultRole, property.name)) {
                continue;
            }
            const auto end = ReferenceOf(*link.association.Get(), property.name);
            if (!end || !IsResult(nameSpace, end->className, query.resultClass)) {
                continue;
            }
            const auto object = walk.Find(*end);
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

Answer ReferencesOf(const EmbeddedNamespace& nameSpace, const ReferencesQuery& query) {
    if (auto unknown = UnknownClassOf(nameSpace, query.path)) {
        return std::move(*unknown);
    }
    Walk walk(nameSpace, query.path);
    Results results(nameSpace, query.classDefsOnly);
    for (const Link& link : walk.Links(query.resultClass, query.role)) {
        results.Add(link.association);
    }
    return walk.Failure() ? *walk.Failure() : results.Take();
}

}  // namespace qv::service
