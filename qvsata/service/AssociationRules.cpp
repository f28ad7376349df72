#include "qvsata/service/AssociationRules.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/StatusCodes.h"
#include "source/Text.h"

namespace qv::service {
namespace {

class AssociationChecks {
public:
    explicit AssociationChecks(const Namespace& nameSpace)
        : nameSpace_(nameSpace), knowsAll_(!nameSpace.Classes().HasUndefined()) {}

    void Path(const AssociationQuery& query) {
        const ObjectPath& path = query.path;
        if (std::string reason = nameSpace_.WhyForeign(path); !reason.empty()) {
            Refuse(status::invalidQuery, std::move(reason));
        }
        if (!knowsAll_) {
            return;
        }
        if (!nameSpace_.Classes().Find(path.className)) {
            Refuse(Status::notFound, "unknown class '" + path.className + "'");
        }
        if (query.schemaOnly && path.NamesInstance()) {
            Refuse(status::invalidQuery, "SchemaOnly needs the path of a class");
        }
        if (!query.schemaOnly && !path.NamesInstance()) {
            Refuse(status::invalidQuery, "'" + path.className +
                                             "' is a class: give the path of an " +
                                             "instance, or SchemaOnly");
        }
    }

    void AssociationClass(const std::string& name) {
        if (!name.empty() && !nameSpace_.Classes().Find(name)) {
            Refuse(status::invalidClass, "unknown class '" + name + "'");
        }
    }

    void ResultClass(const std::string& name) {
        if (knowsAll_) {
            AssociationClass(name);
        }
    }

    /// `assocClass` is the class whose references are meant; empty for those of any class.
    void Role(const std::string& role, const std::string& assocClass) {
        const auto hasRole = [&role](const ResolvedClassPtr& type) {
            const PropertyDefinition* const property = type->Find(role);
            return property != nullptr && property->type == CimType::reference;
        };
        if (knowsAll_ && !role.empty() &&
            std::ranges::none_of(ClassesAllowedBy(assocClass, nameSpace_.Classes()), hasRole)) {
            Refuse(status::invalidQuery,
                   "unknown role '" + role + "'" +
                       (assocClass.empty() ? "" : " of class '" + assocClass + "'"));
        }
    }

    std::optional<Answer> TakeRefusal() { return std::move(refusal_); }

private:
    /// Keeps the first refusal.
    void Refuse(Status status, std::string message) {
        if (!refusal_) {
            refusal_ = Answer{status, std::move(message), {}};
        }
    }

    const Namespace& nameSpace_;
    bool knowsAll_;
    std::optional<Answer> refusal_;
};

}  // namespace

std::optional<Answer> RefusalOf(const Namespace& nameSpace, const AssociatorsQuery& query) {
    AssociationChecks checks(nameSpace);
    checks.Path(query);
    checks.AssociationClass(query.assocClass);
    checks.ResultClass(query.resultClass);
    checks.Role(query.role, query.assocClass);
    checks.Role(query.resultRole, query.assocClass);
    return checks.TakeRefusal();
}

std::optional<Answer> RefusalOf(const Namespace& nameSpace, const ReferencesQuery& query) {
    AssociationChecks checks(nameSpace);
    checks.Path(query);
    checks.AssociationClass(query.resultClass);
    checks.Role(query.role, query.resultClass);
    return checks.TakeRefusal();
}

bool Allows(const std::string& asked, std::string_view name) {
    return asked.empty() || EqualsIgnoringCase(asked, name);
}

std::vector<ResolvedClassPtr> ClassesAllowedBy(const std::string& asked,
                                               const NamespaceClasses& classes) {
    return asked.empty() ? classes.Listed() : classes.WithSubclasses(asked);
}

bool HasRequired(const std::string& qualifier, const ResolvedClassPtr& type) {
    return qualifier.empty() || (type && type->HasQualifier(qualifier));
}

}  // namespace qv::service
