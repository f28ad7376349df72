#include "qvsata/service/JournaledMachine.h"

#include <string>
#include <utility>

#include "qvsata/cim/StatusCodes.h"

namespace qv::service {
namespace {

SourceEnd EndOf(const Answer& answer, MachineKind kind) {
    if (Succeeded(answer.status)) {
        return SourceEnd::answered;
    }
    if (answer.status == status::timedOut) {
        return SourceEnd::timedOut;
    }
    if (!answer.objects.empty()) {
        return SourceEnd::brokenOff;
    }
    if (answer.status == status::invalidClass) {
        return kind == MachineKind::recorded ? SourceEnd::neverRecorded : SourceEnd::unknownClass;
    }
    return SourceEnd::refusedAtSubmission;
}

SourceEnd EndOfConnection(Status status, MachineKind kind) {
    if (status == status::timedOut) {
        return SourceEnd::timedOut;
    }
    return kind == MachineKind::recorded && status == status::invalidNamespace
               ? SourceEnd::neverRecorded
               : SourceEnd::refusedAtConnection;
}

class JournaledServices final : public Services {
public:
    JournaledServices(std::shared_ptr<const Services> machine, MachineKind kind,
                      std::string nameSpace, std::shared_ptr<SourceJournal> journal)
        : machine_(std::move(machine)),
          kind_(kind),
          nameSpace_(std::move(nameSpace)),
          journal_(std::move(journal)) {}

    Answer Get(std::string_view path) const override { return machine_->Get(path); }

    Answer Enumerate(std::string_view className) const override {
        return Noted("SELECT * FROM " + std::string(className),
                     [&] { return machine_->Enumerate(className); });
    }

    Answer Query(std::string_view wql) const override {
        return Noted(wql, [&] { return machine_->Query(wql); });
    }

private:
    template <typename Ask>
    Answer Noted(std::string_view wql, Ask ask) const {
        SourceJournal::Entry& entry = journal_->Begin(nameSpace_, wql);
        Answer answer = ask();
        SourceJournal::End(entry, answer.status, answer.objects.size(), EndOf(answer, kind_));
        return answer;
    }

    std::shared_ptr<const Services> machine_;
    MachineKind kind_;
    std::string nameSpace_;
    std::shared_ptr<SourceJournal> journal_;
};

}  // namespace

Connector WithJournal(Connector machine, MachineKind kind, std::shared_ptr<SourceJournal> journal) {
    return [machine = std::move(machine), kind,
            journal = std::move(journal)](std::string_view nameSpace) -> Connection {
        Connection connection = machine(nameSpace);
        if (!connection.services) {
            SourceJournal::Entry& entry = journal->Begin(nameSpace, "");
            SourceJournal::End(entry, connection.status, 0,
                               EndOfConnection(connection.status, kind));
            return connection;
        }
        return {connection.status,
                std::make_shared<const JournaledServices>(std::move(connection.services), kind,
                                                          std::string(nameSpace), journal)};
    };
}

}  // namespace qv::service
