#include "qvsata/service/com/EmbeddedNamespace.h"

#include <algorithm>

#include "platform/windows/WbemStatus.h"
#include "qvsata/service/com/AssociationWalk.h"
#include "qvsata/service/com/ClassObject.h"
#include "qvsata/service/com/InstanceObject.h"
#include "qvsata/service/com/ObjectReading.h"
#include "qvsata/service/com/SnapshotObject.h"
#include "qvsata/service/com/StatusText.h"
#include "source/Text.h"

namespace qv::service {
namespace {

Answer Failure(HRESULT status, std::string message) {
    return {status, std::move(message), {}};
}

Answer UnknownClass(HRESULT status, std::string_view className) {
    return Failure(status, "unknown class '" + std::string(className) + "'");
}

Answer FromProvider(ProviderAnswer given, std::string_view request) {
    Answer answer;
    answer.status = given.Status();
    answer.objects = std::move(given.objects);
    if (FAILED(answer.status)) {
        answer.message = std::string(request) + ": " + StatusText(answer.status);
        if (!given.exception.empty()) {
            answer.message += ": the provider raised an exception: " + given.exception;
        }
    }
    return answer;
}

bool RefusesQueries(HRESULT status) {
    return status == windows::Hr(WBEM_E_NOT_SUPPORTED) ||
           status == windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE);
}

}  // namespace

EmbeddedNamespace::EmbeddedNamespace(ClassRepository classes, std::string nameSpace,
                                     std::string server)
    : classes_(std::move(classes)), nameSpace_(std::move(nameSpace)), server_(std::move(server)) {
    for (const ClassDefinition& definition : classes_.Classes()) {
        resolved_[FoldCase(definition.name)] =
            Resolve(classes_, definition.name, server_, nameSpace_);
        const Qualifier* dynamic = classes_.ClassQualifier(definition.name, "dynamic");
        if (dynamic != nullptr && dynamic->value == CimValue(true) &&
            !HasQualifier(definition.qualifiers, "abstract")) {
            served_.push_back(definition.name);
        }
    }
}

void EmbeddedNamespace::Attach(std::shared_ptr<const ProviderObject> provider) {
    const std::lock_guard lock(mutex_);
    // What was attached is let go when the lock is free again.
    provider_.swap(provider);
}

std::shared_ptr<const ProviderObject> EmbeddedNamespace::Provider() const {
    const std::lock_guard lock(mutex_);
    return provider_;
}

ResolvedClassPtr EmbeddedNamespace::FindClass(std::string_view className) const {
    const auto found = resolved_.find(FoldCase(className));
    return found == resolved_.end() ? Resolve(classes_, className, server_, nameSpace_)
                                    : found->second;
}

std::vector<std::string> EmbeddedNamespace::ServedClasses(std::string_view className) const {
    std::vector<std::string> chosen;
    std::ranges::copy_if(served_, std::back_inserter(chosen),
                         [&](const std::string& name) { return classes_.IsA(name, className); });
    return chosen;
}

bool EmbeddedNamespace::IsServed(std::string_view className) const {
    return std::ranges::any_of(served_, [className](const std::string& name) {
        return EqualsIgnoringCase(name, className);
    });
}

void EmbeddedNamespace::AppendStated(std::string_view className, ObjectList& objects) const {
    for (const InstanceDefinition& stated : classes_.Instances()) {
        if (classes_.IsA(stated.className, className)) {
            const auto object = windows::MakeObject<InstanceObject>(FindClass(stated.className));
            for (const auto& [name, value] : stated.values) {
                object->Set(name, value);
            }
            objects.push_back(object);
        }
    }
}

Answer EmbeddedNamespace::EnumerateServed(const std::string& className) const {
    const auto provider = Provider();
    return provider ? FromProvider(provider->Enumerate(className), "enumerating " + className)
                    : Answer{};
}

Answer EmbeddedNamespace::Enumerate(std::string_view className) const {
    if (classes_.Find(className) == nullptr) {
        return UnknownClass(windows::Hr(WBEM_E_INVALID_CLASS), className);
    }
    Answer answer;
    for (const std::string& served : ServedClasses(className)) {
        Answer part = EnumerateServed(served);
        if (FAILED(part.status)) {
            return part;
        }
        std::ranges::move(part.objects, std::back_inserter(answer.objects));
    }
    AppendStated(className, answer.objects);
    return answer;
}

Answer EmbeddedNamespace::Get(std::string_view text) const {
    PathError error;
    const std::optional<ObjectPath> path = ParseObjectPath(text, &error);
    if (!path) {
        return Failure(
            windows::Hr(WBEM_E_INVALID_OBJECT_PATH),
            "path: position " + std::to_string(error.position + 1) + ": " + error.reason);
    }
    const ResolvedClassPtr type = FindClass(path->className);
    if (!type) {
        return UnknownClass(windows::Hr(WBEM_E_NOT_FOUND), path->className);
    }
    if (path->keys.empty() && !path->singleton) {
        return {WBEM_S_NO_ERROR, {}, {windows::MakeObject<ClassObject>(type)}};
    }
    const auto provider = Provider();
    if (provider && IsServed(type->name)) {
        return FromProvider(provider->Get(text), std::string(text));
    }
    return GetInAnyOrder(text);
}

Answer EmbeddedNamespace::GetInAnyOrder(std::string_view text) const {
    PathError error;
    const std::optional<ObjectPath> path = ParseObjectPath(text, &error);
    if (!path || (path->keys.empty() && !path->singleton)) {
        return Get(text);
    }
    Answer all = Enumerate(path->className);
    if (FAILED(all.status)) {
        return all;
    }
    for (const auto& object : all.objects) {
        const std::optional<ObjectPath> own = ParseObjectPath(ReadText(*object.Get(), "__RELPATH"));
        if (!own || !NamesSameObject(*own, *path)) {
            continue;
        }
        const InstanceObject* instance = InstanceObject::From(object.Get());
        const auto provider = Provider();
        if (provider && instance != nullptr && !instance->PutLog().empty()) {
            return FromProvider(provider->Get(instance->PathAsPut()), instance->PathAsPut());
        }
        return {WBEM_S_NO_ERROR, {}, {object}};
    }
    return Failure(windows::Hr(WBEM_E_NOT_FOUND),
                   std::string(text) + ": " + StatusText(windows::Hr(WBEM_E_NOT_FOUND)));
}

Answer EmbeddedNamespace::SelectClasses(const SelectQuery& query) const {
    Answer answer;
    for (const ClassDefinition& definition : classes_.Classes()) {
        const auto object = windows::MakeObject<ClassObject>(FindClass(definition.name));
        if (query.Accepts(ReaderOf(*object.Get()))) {
            answer.objects.push_back(object);
        }
    }
    return answer;
}

Answer EmbeddedNamespace::SelectServed(std::string_view wql, const std::string& className) const {
    if (const auto provider = Provider()) {
        ProviderAnswer offered = provider->Query(wql);
        if (!RefusesQueries(offered.Status())) {
            return FromProvider(std::move(offered), "query on " + className);
        }
    }
    return EnumerateServed(className);
}

Answer EmbeddedNamespace::Select(std::string_view wql, const SelectQuery& query) const {
    if (query.AsksForClasses()) {
        return SelectClasses(query);
    }
    if (classes_.Find(query.className) == nullptr) {
        return UnknownClass(windows::Hr(WBEM_E_INVALID_CLASS), query.className);
    }
    Answer answer;
    for (const std::string& served : ServedClasses(query.className)) {
        const bool isNamed = EqualsIgnoringCase(served, query.className);
        Answer part = SelectServed(isNamed ? std::string(wql) : "SELECT * FROM " + served, served);
        if (FAILED(part.status)) {
            return part;
        }
        std::ranges::move(part.objects, std::back_inserter(answer.objects));
    }
    AppendStated(query.className, answer.objects);
    std::erase_if(answer.objects,
                  [&query](const auto& object) { return !query.Accepts(ReaderOf(*object.Get())); });
    if (!query.properties.empty()) {
        std::ranges::transform(
            answer.objects, answer.objects.begin(), [&query](const auto& object) {
                return windows::ComPtr<IWbemClassObject>(windows::MakeObject<SnapshotObject>(
                    SnapshotOf(*object.Get(), query.properties)));
            });
    }
    return answer;
}

Answer EmbeddedNamespace::Query(std::string_view wql) const {
    try {
        const WqlQuery query = ParseWql(wql);
        if (const auto* select = std::get_if<SelectQuery>(&query)) {
            return Select(wql, *select);
        }
        if (const auto* associators = std::get_if<AssociatorsQuery>(&query)) {
            return AssociatorsOf(*this, *associators);
        }
        return ReferencesOf(*this, std::get<ReferencesQuery>(query));
    } catch (const WqlError& error) {
        return Failure(windows::Hr(WBEM_E_INVALID_QUERY), std::string("query: ") + error.what());
    }
}

}  // namespace qv::service
