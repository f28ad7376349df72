#include "qvsata/service/RecordedQuery.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

#include "qvsata/service/RecordedRow.h"
#include "source/Text.h"

namespace qv::service {
namespace {

bool IsUnsetOr(std::string_view wanted, std::string_view name) {
    return wanted.empty() || EqualsIgnoringCase(wanted, name);
}

QueryAnswer Failure(QueryStatus status, std::string message) {
    return {status, std::move(message), {}};
}

// A query that runs: what it looks at and the answer that it fills.
class QueryRun {
public:
    QueryRun(const RecordedHost& host, const RecordedNamespace& nameSpace,
             std::string_view spelling)
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
            for (const RecordedRowPtr& row : found->rows) {
                AddIfAccepted(query, row);
            }
        }
        return std::move(answer_);
    }

    QueryAnswer operator()(const AssociatorsQuery& query) {
        ForEachLink(query.assocClass, [&](const RecordedRowPtr& link) {
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
        ForEachLink(query.resultClass, [&](const RecordedRowPtr& link) {
            if (NamesPath(*link, query.path, query.role, {})) {
                answer_.objects.emplace_back(link, scope_);
            }
        });
        return Finish(query.classDefsOnly);
    }

private:
    void AddIfAccepted(const SelectQuery& query, RecordedRowPtr row) {
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
    const RecordedNamespace& nameSpace_;
    std::shared_ptr<RecordedScope> scope_;
    std::shared_ptr<RecordedScope> whole_;
    QueryAnswer answer_;
};

}  // namespace

QueryAnswer RunRecordedQuery(const RecordedHost& host, const RecordedNamespace& nameSpace,
                             std::string_view spelling, const WqlQuery& query) {
    return std::visit(QueryRun(host, nameSpace, spelling), query);
}

}  // namespace qv::service
