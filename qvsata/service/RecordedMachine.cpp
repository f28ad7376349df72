#include "qvsata/service/RecordedMachine.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/recorded/RecordedObject.h"

namespace qv::service {
namespace {

/// The rows of one recorded namespace.
class RecordedRowsSource final : public InstanceSource {
public:
    RecordedRowsSource(std::shared_ptr<const RecordedHost> host, const RecordedNamespace& rows,
                       std::string spelling)
        : host_(std::move(host)),
          rows_(rows),
          scope_(std::make_shared<RecordedScope>(
              RecordedScope{host_->Computer().server, std::move(spelling)})) {}

    bool Serves(const ResolvedClassPtr& type) const override {
        return rows_.Find(type->name) != nullptr;
    }

    Answer Enumerate(const ResolvedClassPtr& type) const override {
        const RecordedClass& recorded = *rows_.Find(type->name);
        return recorded.Failure() ? Failing(recorded) : AllRows(recorded);
    }

    std::optional<Answer> Referencing(const ResolvedClassPtr& type,
                                      const ObjectPath& path) const override {
        const RecordedClass& recorded = *rows_.Find(type->name);
        return recorded.Failure() ? Failing(recorded) : Rows(recorded.Referencing(path));
    }

    std::optional<FoundObject> FindText(const ResolvedClassPtr& type, std::string_view property,
                                        std::string_view text) const override {
        const RecordedClass& recorded = *rows_.Find(type->name);
        if (recorded.Failure()) {
            return FoundObject{Failing(recorded)};
        }
        const RecordedRow* const row = recorded.FindText(property, text);
        return FoundObject{row == nullptr ? Answer() : Rows({row}), recorded.Rows().size()};
    }

    std::optional<ObjectPtr> LookUp(const ResolvedClassPtr& type,
                                    const ObjectPath& path) const override {
        const RecordedClass& recorded = *rows_.Find(type->name);
        if (recorded.Failure()) {
            return std::nullopt;  // Enumerate tells why.
        }
        const RecordedRow* const row = recorded.Find(path);
        return row == nullptr ? nullptr
                              : std::make_shared<const RecordedObject>(Owned(row), scope_);
    }

private:
    static Answer Failing(const RecordedClass& recorded) {
        return {recorded.Failure().value(), "queries of " + recorded.Name() + " fail", {}};
    }

    /// Returns a row of the host together with the host.
    std::shared_ptr<const RecordedRow> Owned(const RecordedRow* row) const { return {host_, row}; }

    Answer AllRows(const RecordedClass& recorded) const {
        std::vector<const RecordedRow*> rows;
        rows.reserve(recorded.Rows().size());
        for (const RecordedRow& row : recorded.Rows()) {
            rows.push_back(&row);
        }
        return Rows(rows);
    }

    Answer Rows(const std::vector<const RecordedRow*>& rows) const {
        // One block of memory for all objects: a class may be read once per disk.
        const auto block = std::make_shared<std::vector<RecordedObject>>();
        block->reserve(rows.size());
        Answer answer;
        answer.objects.reserve(rows.size());
        for (const RecordedRow* const row : rows) {
            answer.objects.emplace_back(block, &block->emplace_back(Owned(row), scope_));
        }
        return answer;
    }

    std::shared_ptr<const RecordedHost> host_;  ///< owns the rows
    const RecordedNamespace& rows_;
    std::shared_ptr<const RecordedScope> scope_;
};

/// The classes of one recorded namespace.
class RecordedClasses final : public NamedClasses {
public:
    RecordedClasses(std::shared_ptr<const RecordedHost> host, const RecordedNamespace& recorded,
                    std::string spelling)
        : host_(std::move(host)), recorded_(recorded), spelling_(std::move(spelling)) {}

    ResolvedClassPtr Find(std::string_view className) const override {
        const RecordedClass* const found = recorded_.Find(className);
        return found == nullptr ? nullptr : Resolved(*found);
    }

    std::vector<ResolvedClassPtr> All() const override {
        std::vector<ResolvedClassPtr> classes;
        for (const RecordedClass& one : recorded_.Classes()) {
            classes.push_back(Resolved(one));
        }
        return classes;
    }

    bool IsEmpty() const override { return recorded_.Classes().empty(); }

private:
    ResolvedClassPtr Resolved(const RecordedClass& recorded) const {
        auto type = std::make_shared<ResolvedClass>();
        type->name = recorded.Name();
        type->server = host_->Computer().server;
        type->nameSpace = spelling_;
        type->isUndefined = true;
        return type;
    }

    std::shared_ptr<const RecordedHost> host_;  ///< owns the classes
    const RecordedNamespace& recorded_;
    std::string spelling_;
};

}  // namespace

std::shared_ptr<const Namespace> OpenRecorded(std::shared_ptr<const RecordedHost> host,
                                              std::string_view spelling) {
    const RecordedNamespace* recorded = host->FindNamespace(spelling);
    if (recorded == nullptr) {
        return nullptr;
    }
    const std::string name = NormalNamespace(spelling);
    return std::make_shared<const Namespace>(
        name, NamespaceClasses(std::make_shared<const RecordedClasses>(host, *recorded, name)),
        Namespace::Sources{std::make_shared<const RecordedRowsSource>(host, *recorded, name)});
}

Connector ConnectRecorded(std::shared_ptr<const RecordingSequence> recordings) {
    return [recordings = std::move(recordings)](std::string_view nameSpace) -> Connection {
        auto opened = OpenRecorded(recordings->Present(), nameSpace);
        return opened ? Connection{Status::noError, std::move(opened)}
                      : Connection{status::invalidNamespace, nullptr};
    };
}

Connector ConnectRecorded(std::shared_ptr<const RecordedHost> host) {
    return ConnectRecorded(std::make_shared<const RecordingSequence>(std::vector{std::move(host)}));
}

}  // namespace qv::service
