#include "qvsata/service/Namespace.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "qvsata/cim/ClassObject.h"
#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/cim/Snapshot.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/service/AssociationWalk.h"
#include "source/Text.h"

namespace qv::service {
namespace {

Answer UnknownClass(Status status, std::string_view className) {
    return {status, "unknown class '" + std::string(className) + "'", {}, std::string(className)};
}

void Append(ObjectList& objects, ObjectList more) {
    std::ranges::move(more, std::back_inserter(objects));
}

/// Returns the class from which a query for class definitions selects: it has system properties
/// only.
const ClassObject& MetaClass() {
    static const ClassObject metaClass([] {
        auto definition = std::make_shared<ResolvedClass>();
        definition->name = "meta_class";
        return definition;
    }());
    return metaClass;
}

}  // namespace

Namespace::Namespace(std::string name, NamespaceClasses classes, Sources sources)
    : name_(std::move(name)), classes_(std::move(classes)), sources_(std::move(sources)) {}

void Namespace::Attach(std::shared_ptr<const InstanceSource> source) {
    const std::lock_guard lock(mutex_);
    // The previous provider is released after the lock.
    provider_.swap(source);
}

Namespace::Sources Namespace::SourcesOf(const ResolvedClassPtr& type) const {
    Sources serving;
    {
        const std::lock_guard lock(mutex_);
        if (provider_) {
            serving.push_back(provider_);
        }
    }
    std::ranges::copy(sources_, std::back_inserter(serving));
    std::erase_if(serving, [&type](const auto& source) { return !source->Serves(type); });
    return serving;
}

template <typename Ask>
Answer Namespace::AskSources(std::string_view className, Ask ask) const {
    if (!classes_.Find(className)) {
        return UnknownClass(status::invalidClass, className);
    }
    Answer answer;
    for (const ResolvedClassPtr& type : classes_.WithSubclasses(className)) {
        for (const auto& source : SourcesOf(type)) {
            Answer part = ask(*source, type);
            if (!Succeeded(part.status)) {
                return part;
            }
            Append(answer.objects, std::move(part.objects));
        }
    }
    return answer;
}

Answer Namespace::Enumerate(std::string_view className) const {
    return AskSources(className, [](const InstanceSource& source, const ResolvedClassPtr& type) {
        return source.Enumerate(type);
    });
}

std::string Namespace::WhyForeign(const ObjectPath& path) const {
    return path.nameSpace.empty() || IsSameNamespace(path.nameSpace, name_)
               ? ""
               : "the path is of the namespace '" + path.nameSpace + "', not of " + name_;
}

Answer Namespace::Get(std::string_view text) const {
    PathError error;
    const std::optional<ObjectPath> path = ParseObjectPath(text, &error);
    if (!path) {
        return {status::invalidObjectPath,
                "path: position " + std::to_string(error.position + 1) + ": " + error.reason,
                {}};
    }
    if (std::string reason = WhyForeign(*path); !reason.empty()) {
        return {status::invalidObjectPath, std::move(reason), {}};
    }
    const ResolvedClassPtr type = classes_.Find(path->className);
    if (!type) {
        return UnknownClass(Status::notFound, path->className);
    }
    if (!path->NamesInstance()) {
        return {Status::noError, {}, {std::make_shared<ClassObject>(type)}};
    }
    for (const auto& source : SourcesOf(type)) {
        if (std::optional<Answer> answer = source->Get(type, text)) {
            return std::move(*answer);
        }
    }
    return GetInAnyOrder(text);
}

Answer Namespace::GetInAnyOrder(std::string_view text) const {
    const std::optional<ObjectPath> path = ParseObjectPath(text);
    const ResolvedClassPtr type = path ? classes_.Find(path->className) : nullptr;
    if (!type || !path->NamesInstance() || !WhyForeign(*path).empty()) {
        return Get(text);
    }
    for (const auto& source : SourcesOf(type)) {
        if (const std::optional<ObjectPtr> found = source->LookUp(type, *path)) {
            if (*found) {
                return {Status::noError, {}, {*found}};
            }
            continue;
        }
        Answer all = source->Enumerate(type);
        if (!Succeeded(all.status)) {
            return all;
        }
        const auto named = std::ranges::find_if(all.objects, [&path](const ObjectPtr& object) {
            const std::optional<ObjectPath> own = ParseObjectPath(TextOf(*object, "__RELPATH"));
            return own && NamesSameObject(*own, *path);
        });
        if (named == all.objects.end()) {
            continue;
        }
        if (const std::optional<std::string> asPut = (*named)->PathAsPut()) {
            if (std::optional<Answer> fetched = source->Get(type, *asPut)) {
                return std::move(*fetched);
            }
        }
        return {Status::noError, {}, {*named}};
    }
    return {Status::notFound, std::string(text) + ": " + StatusText(Status::notFound), {}};
}

Answer Namespace::SelectClasses(const SelectQuery& query) const {
    Check(query, MetaClass());
    Answer answer;
    for (const ResolvedClassPtr& type : classes_.Listed()) {
        auto object = std::make_shared<const ClassObject>(type);
        if (query.Accepts(*object)) {
            answer.objects.push_back(std::move(object));
        }
    }
    return answer;
}

void Namespace::Check(const SelectQuery& query, const Object& definition) const {
    query.CheckAgainst({definition, [this](std::string_view className) {
                            return classes_.Find(className) != nullptr;
                        }});
}

Answer Namespace::Select(std::string_view wql, const SelectQuery& query) const {
    if (query.AsksForClasses()) {
        return SelectClasses(query);
    }
    // The properties of a class that is known by name only are unknown until its rows are read.
    if (const ResolvedClassPtr type = classes_.Find(query.className); type && !type->isUndefined) {
        Check(query, ClassObject(type));
    }
    Answer answer = AskSources(
        query.className, [&](const InstanceSource& source, const ResolvedClassPtr& type) -> Answer {
            const bool isNamed = EqualsIgnoringCase(type->name, query.className);
            std::optional<Answer> offered =
                source.Query(type, isNamed ? std::string(wql) : "SELECT * FROM " + type->name);
            return offered ? std::move(*offered) : source.Enumerate(type);
        });
    if (query.where) {
        std::erase_if(answer.objects,
                      [&query](const ObjectPtr& object) { return !query.Accepts(*object); });
    }
    if (!query.properties.empty()) {
        std::vector<std::string> names;
        std::ranges::transform(query.properties, std::back_inserter(names), &WqlName::text);
        for (ObjectPtr& object : answer.objects) {
            object = service::Select(*object, names);
        }
    }
    return answer;
}

FoundObject Namespace::FindText(std::string_view className, std::string_view property,
                                std::string_view text) const {
    const std::vector<ResolvedClassPtr> types = classes_.WithSubclasses(className);
    const Sources sources = types.size() == 1 ? SourcesOf(types.front()) : Sources();
    std::optional<FoundObject> found =
        sources.size() == 1 ? sources.front()->FindText(types.front(), property, text)
                            : std::nullopt;
    return found ? *std::move(found) : Services::FindText(className, property, text);
}

Answer Namespace::Query(std::string_view wql) const {
    try {
        const WqlQuery query = ParseWql(wql);
        if (const auto* select = std::get_if<SelectQuery>(&query)) {
            return Select(wql, *select);
        }
        if (const auto* associators = std::get_if<AssociatorsQuery>(&query)) {
            return Query(*associators);
        }
        return Query(std::get<ReferencesQuery>(query));
    } catch (const WqlError& error) {
        return {status::invalidQuery, std::string("query: ") + error.what(), {}};
    }
}

Answer Namespace::Query(const AssociatorsQuery& query) const {
    return AssociatorsOf(*this, query);
}

Answer Namespace::Query(const ReferencesQuery& query) const {
    return ReferencesOf(*this, query);
}

}  // namespace qv::service
