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
        return recorded.Failure() ? Failing(recorded) : Rows(recorded.Rows());
    }

    std::optional<Answer> Referencing(const ResolvedClassPtr& type,
                                      const ObjectPath& path) const override {
        const RecordedClass& recorded = *rows_.Find(type->name);
        return recorded.Failure() ? Failing(recorded) : Rows(recorded.Referencing(path));
    }

    std::optional<ObjectPtr> LookUp(const ResolvedClassPtr& type,
                                    const ObjectPath& path) const override {
        const RecordedClass& recorded = *rows_.Find(type->name);
        if (recorded.Failure()) {
            return std::nullopt;  // Enumerate tells why.
        }
        const RecordedRowPtr row = recorded.Find(path);
        return row ? AsObject(row) : nullptr;
    }

private:
    static Answer Failing(const RecordedClass& recorded) {
        return {recorded.Failure().value(), "queries of " + recorded.Name() + " fail", {}};
    }

    ObjectPtr AsObject(const RecordedRowPtr& row) const {
        return std::make_shared<const RecordedObject>(row, scope_);
    }

    Answer Rows(const RecordedRows& rows) const {
        // One block of memory for all objects: a class may be read once per disk.
        const auto block = std::make_shared<std::vector<RecordedObject>>();
        block->reserve(rows.size());
        Answer answer;
        answer.objects.reserve(rows.size());
        for (const RecordedRowPtr& row : rows) {
            answer.objects.emplace_back(block, &block->emplace_back(row, scope_));
        }
        return answer;
    }

    std::shared_ptr<const RecordedHost> host_;  ///< owns the rows
    const RecordedNamespace& rows_;
    std::shared_ptr<const RecordedScope> scope_;
};

NamespaceClasses ClassesOf(const RecordedHost& host, const RecordedNamespace& recorded,
                           const std::string& spelling) {
    std::vector<ResolvedClassPtr> classes;
    for (const RecordedClass& one : recorded.Classes()) {
        auto type = std::make_shared<ResolvedClass>();
        type->name = one.Name();
        type->server = host.Computer().server;
        type->nameSpace = spelling;
        type->isUndefined = true;
        classes.push_back(std::move(type));
    }
    return NamespaceClasses(std::move(classes));
}

}  // namespace

std::shared_ptr<const Namespace> OpenRecorded(std::shared_ptr<const RecordedHost> host,
                                              std::string_view spelling) {
    const RecordedNamespace* recorded = host->FindNamespace(spelling);
    if (recorded == nullptr) {
        return nullptr;
    }
    const std::string name = NormalNamespace(spelling);
    NamespaceClasses classes = ClassesOf(*host, *recorded, name);
    return std::make_shared<const Namespace>(
        name, std::move(classes),
        Namespace::Sources{
            std::make_shared<const RecordedRowsSource>(std::move(host), *recorded, name)});
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
