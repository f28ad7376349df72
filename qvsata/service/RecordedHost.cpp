#include "qvsata/service/RecordedHost.h"

#include <algorithm>

#include "qvsata/service/RecordedRow.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using RowPtr = std::shared_ptr<const RecordedRow>;

struct ClassRows {
    std::string name;
    std::vector<RowPtr> rows;
    bool fails = false;
};

struct Namespace {
    std::string name;
    std::vector<ClassRows> classes;
};

// Null where there is none; const as the namespace is.
template <typename NamespaceType>
auto FindClass(NamespaceType& nameSpace, std::string_view className)
    -> decltype(nameSpace.classes.data()) {
    const auto found =
        std::ranges::find_if(nameSpace.classes, [className](const ClassRows& candidate) {
            return EqualsIgnoringCase(candidate.name, className);
        });
    return found == nameSpace.classes.end() ? nullptr : &*found;
}

bool IsUnsetOr(std::string_view wanted, std::string_view name) {
    return wanted.empty() || EqualsIgnoringCase(wanted, name);
}

QueryAnswer Failure(QueryStatus status, std::string message) {
    return {status, std::move(message), {}};
}

// A query that runs: what it looks at and the answer that it fills.
class QueryRun {
public:
    QueryRun(const RecordedHost& host, const Namespace& nameSpace, std::string_view spelling)
        : host_(host), nameSpace_(nameSpace), scope_(std::make_shared<RecordedScope>()) {
        scope_->server = host.Computer().server;
        scope_->nameSpace = NormalNamespace(spelling);
    }

    QueryAnswer operator()(const SelectQuery& query) {
        scope_->selection = query.properties;
        if (query.AsksForClasses()) {
            for (const ClassRows& candidate : nameSpace_.classes) {
                AddIfAccepted(query, std::make_shared<RecordedRow>(MakeClassRow(candidate.name)));
            }
            return std::move(answer_);
        }
        const ClassRows* found = FindReadableClass(query.className);
        if (found != nullptr) {
            for (const RowPtr& row : found->rows) {
                AddIfAccepted(query, row);
            }
        }
        return std::move(answer_);
    }

    QueryAnswer operator()(const AssociatorsQuery& query) {
        ForEachLink(query.assocClass, [&](const RowPtr& link) {
            for (const auto& [name, target] : link->references) {
                if (IsUnsetOr(query.resultRole, name) &&
                    IsUnsetOr(query.resultClass, target.className) &&
                    NamesPath(*link, query.path, query.role, name)) {
                    AddTarget(target);
                    break;
                }
            }
        });
        return Finish(query.classDefsOnly);
    }

    QueryAnswer operator()(const ReferencesQuery& query) {
        ForEachLink(query.resultClass, [&](const RowPtr& link) {
            if (NamesPath(*link, query.path, query.role, {})) {
                answer_.objects.emplace_back(link, scope_);
            }
        });
        return Finish(query.classDefsOnly);
    }

private:
    void AddIfAccepted(const SelectQuery& query, RowPtr row) {
        // The condition may ask for what is not selected.
        const RecordedObject whole(row, WholeScope());
        if (query.Accepts([&whole](std::string_view name) { return whole.Get(name); })) {
            answer_.objects.emplace_back(std::move(row), scope_);
        }
    }

    std::shared_ptr<const RecordedScope> WholeScope() {
        if (scope_->selection.empty()) {
            return scope_;
        }
        if (whole_ == nullptr) {
            whole_ = std::make_shared<RecordedScope>(*scope_);
            whole_->selection.clear();
        }
        return whole_;
    }

    const ClassRows* FindReadableClass(std::string_view className) {
        const ClassRows* found = FindClass(nameSpace_, className);
        if (found == nullptr) {
            answer_ = Failure(QueryStatus::invalidClass,
                              "no class " + std::string(className) + " in " + nameSpace_.name);
        } else if (found->fails) {
            answer_ = Failure(QueryStatus::failed, "queries of " + found->name + " fail");
            found = nullptr;
        }
        return found;
    }

    // The rows of one association class, or of all classes that can be read.
    template <typename Function>
    void ForEachLink(const std::string& className, Function function) {
        if (!className.empty()) {
            const ClassRows* found = FindReadableClass(className);
            if (found != nullptr) {
                std::ranges::for_each(found->rows, function);
            }
            return;
        }
        for (const ClassRows& candidate : nameSpace_.classes) {
            std::ranges::for_each(candidate.rows, function);
        }
    }

    // Whether a reference of the row names the path: the one called `role` (any if empty), but not
    // the one called `except`.
    bool NamesPath(const RecordedRow& link, const ObjectPath& path, std::string_view role,
                   std::string_view except) const {
        return std::ranges::any_of(link.references, [&](const auto& reference) {
            return reference.first != except && IsUnsetOr(role, reference.first) &&
                   NamesSameObject(reference.second, path);
        });
    }

    void AddTarget(const ObjectPath& target) {
        if (auto found = host_.Find(scope_->nameSpace, target)) {
            answer_.objects.push_back(*std::move(found));
        }
    }

    QueryAnswer Finish(bool classDefsOnly) {
        if (!classDefsOnly) {
            return std::move(answer_);
        }
        std::vector<RecordedObject> classes;
        for (const RecordedObject& object : answer_.objects) {
            const auto isOfSameClass = [&object](const RecordedObject& known) {
                return EqualsIgnoringCase(known.ClassName(), object.ClassName());
            };
            if (std::ranges::none_of(classes, isOfSameClass)) {
                classes.emplace_back(
                    std::make_shared<RecordedRow>(MakeClassRow(object.ClassName())), scope_);
            }
        }
        answer_.objects = std::move(classes);
        return std::move(answer_);
    }

    const RecordedHost& host_;
    const Namespace& nameSpace_;
    std::shared_ptr<RecordedScope> scope_;
    std::shared_ptr<RecordedScope> whole_;
    QueryAnswer answer_;
};

}  // namespace

struct RecordedHost::Data {
    std::string description;
    ComputerNames computer;
    std::vector<Namespace> namespaces;

    Namespace* FindNamespace(std::string_view nameSpace) {
        const auto found = std::ranges::find_if(namespaces, [nameSpace](const auto& candidate) {
            return IsSameNamespace(candidate.name, nameSpace);
        });
        return found == namespaces.end() ? nullptr : &*found;
    }

    Namespace& GetNamespace(std::string_view nameSpace) {
        Namespace* found = FindNamespace(nameSpace);
        return found != nullptr
                   ? *found
                   : namespaces.emplace_back(NormalNamespace(nameSpace), std::vector<ClassRows>{});
    }

    ClassRows& GetClass(std::string_view nameSpace, std::string_view className) {
        Namespace& owner = GetNamespace(nameSpace);
        ClassRows* found = FindClass(owner, className);
        return found != nullptr ? *found
                                : owner.classes.emplace_back(std::string(className),
                                                             std::vector<RowPtr>{}, false);
    }
};

RecordedHost::RecordedHost() : RecordedHost(ComputerNames{}) {}

RecordedHost::RecordedHost(ComputerNames computer, std::string description)
    : data_(std::make_unique<Data>()) {
    if (computer.server.empty()) {
        computer.server = computer.netbios.empty() ? "." : computer.netbios;
    }
    data_->computer = std::move(computer);
    data_->description = std::move(description);
}

RecordedHost::RecordedHost(const RecordedHost& other)
    : data_(std::make_unique<Data>(*other.data_)) {}
RecordedHost::RecordedHost(RecordedHost&&) noexcept = default;
RecordedHost& RecordedHost::operator=(const RecordedHost& other) {
    data_ = std::make_unique<Data>(*other.data_);
    return *this;
}
RecordedHost& RecordedHost::operator=(RecordedHost&&) noexcept = default;
RecordedHost::~RecordedHost() = default;

const std::string& RecordedHost::Description() const {
    return data_->description;
}

const ComputerNames& RecordedHost::Computer() const {
    return data_->computer;
}

void RecordedHost::DefineNamespace(std::string_view nameSpace) {
    data_->GetNamespace(nameSpace);
}

void RecordedHost::DefineClass(std::string_view nameSpace, std::string_view className) {
    data_->GetClass(nameSpace, className);
}

void RecordedHost::AddRow(std::string_view nameSpace, std::string_view className,
                          RowProperties properties) {
    ClassRows& owner = data_->GetClass(nameSpace, className);
    owner.rows.push_back(std::make_shared<RecordedRow>(MakeRow(owner.name, std::move(properties))));
}

void RecordedHost::FailClass(std::string_view nameSpace, std::string_view className) {
    ClassRows& owner = data_->GetClass(nameSpace, className);
    owner.rows.clear();
    owner.fails = true;
}

bool RecordedHost::HasNamespace(std::string_view nameSpace) const {
    return data_->FindNamespace(nameSpace) != nullptr;
}

std::vector<std::string> RecordedHost::Namespaces() const {
    std::vector<std::string> names;
    std::ranges::transform(data_->namespaces, std::back_inserter(names), &Namespace::name);
    return names;
}

std::vector<std::string> RecordedHost::Classes(std::string_view nameSpace) const {
    std::vector<std::string> names;
    if (const Namespace* found = data_->FindNamespace(nameSpace)) {
        std::ranges::transform(found->classes, std::back_inserter(names), &ClassRows::name);
    }
    return names;
}

QueryAnswer RecordedHost::RunQuery(std::string_view nameSpace, std::string_view query) const {
    try {
        return RunQuery(nameSpace, ParseWql(query));
    } catch (const WqlError& error) {
        return Failure(QueryStatus::invalidQuery, error.what());
    }
}

QueryAnswer RecordedHost::RunQuery(std::string_view nameSpace, const WqlQuery& query) const {
    const Namespace* found = data_->FindNamespace(nameSpace);
    if (found == nullptr) {
        return Failure(QueryStatus::invalidNamespace, "no namespace " + std::string(nameSpace));
    }
    return std::visit(QueryRun(*this, *found, nameSpace), query);
}

std::optional<RecordedObject> RecordedHost::Find(std::string_view nameSpace,
                                                 const ObjectPath& path) const {
    // The connection's spelling is kept where the path means the same namespace.
    const std::string_view wanted =
        path.nameSpace.empty() || IsSameNamespace(path.nameSpace, nameSpace) ? nameSpace
                                                                             : path.nameSpace;
    const Namespace* owner = data_->FindNamespace(wanted);
    const ClassRows* rows = owner == nullptr ? nullptr : FindClass(*owner, path.className);
    if (rows == nullptr || path.keys.empty()) {
        return std::nullopt;
    }
    const auto found = std::ranges::find_if(
        rows->rows, [&path](const RowPtr& row) { return NamesSameObject(row->path, path); });
    if (found == rows->rows.end()) {
        return std::nullopt;
    }
    return RecordedObject(*found, std::make_shared<RecordedScope>(RecordedScope{
                                      data_->computer.server, NormalNamespace(wanted), {}}));
}

}  // namespace qv::service
