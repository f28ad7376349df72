#include "qvsata/service/JournaledMachine.h"

#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/wql/Wql.h"
#include "source/Text.h"

namespace qv::service {
namespace {

SourceEnd EndOfUnknownClass(MachineKind kind) {
    return kind == MachineKind::recorded ? SourceEnd::neverRecorded : SourceEnd::unknownClass;
}

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
        return EndOfUnknownClass(kind);
    }
    return SourceEnd::refusedAtSubmission;
}

/// That a class has no object with a path is an answer.
SourceEnd EndOfGet(const Answer& answer, MachineKind kind) {
    if (answer.status != Status::notFound) {
        return EndOf(answer, kind);
    }
    return answer.unreadClass.empty() ? SourceEnd::answered : EndOfUnknownClass(kind);
}

SourceEnd EndOfConnection(Status status, MachineKind kind) {
    if (status == status::timedOut) {
        return SourceEnd::timedOut;
    }
    return kind == MachineKind::recorded && status == status::invalidNamespace
               ? SourceEnd::neverRecorded
               : SourceEnd::refusedAtConnection;
}

/// Returns nothing for a text that is not a query.
std::optional<WqlQuery> ParsedWql(std::string_view wql) try {
    return ParseWql(wql);
} catch (const WqlError&) {
    return std::nullopt;
}

/// Returns the class that a query reads, see SourceQuery.
std::string ClassReadBy(const WqlQuery& query) {
    if (const auto* const select = std::get_if<SelectQuery>(&query)) {
        return select->className;
    }
    if (const auto* const associators = std::get_if<AssociatorsQuery>(&query)) {
        return associators->assocClass.empty() ? associators->path.className
                                               : associators->assocClass;
    }
    const auto& references = std::get<ReferencesQuery>(query);
    return references.resultClass.empty() ? references.path.className : references.resultClass;
}

class JournaledServices final : public Services {
public:
    JournaledServices(std::shared_ptr<const Services> machine, MachineKind kind,
                      std::string nameSpace, std::shared_ptr<SourceJournal> journal)
        : machine_(std::move(machine)),
          kind_(kind),
          nameSpace_(std::move(nameSpace)),
          journal_(std::move(journal)) {}

    Answer Get(std::string_view path) const override {
        const std::optional<ObjectPath> parsed = ParseObjectPath(path);
        return Noted(path, parsed ? parsed->className : "", EndOfGet,
                     [&] { return machine_->Get(path); });
    }

    Answer Enumerate(std::string_view className) const override {
        return Noted(SelectAll(className), std::string(className), EndOf,
                     [&] { return machine_->Enumerate(className); });
    }

    FoundObject FindText(std::string_view className, std::string_view property,
                         std::string_view text) const override {
        SourceJournal::Entry& entry =
            journal_->Begin(nameSpace_, SelectAll(className), std::string(className));
        FoundObject found = machine_->FindText(className, property, text);
        SourceJournal::End(entry, found.answer.status, found.objectCount,
                           EndOf(found.answer, kind_));
        return found;
    }

    Answer Query(std::string_view wql) const override {
        const std::optional<WqlQuery> query = ParsedWql(wql);
        Answer answer = Noted(wql, query ? ClassReadBy(*query) : "", EndOf,
                              [&] { return machine_->Query(wql); });
        const auto* const associators = query ? std::get_if<AssociatorsQuery>(&*query) : nullptr;
        if (associators != nullptr && Succeeded(answer.status)) {
            NoteAssociated(*associators, wql, answer.objects);
        }
        return answer;
    }

private:
    template <typename GetEnd, typename Ask>
    Answer Noted(std::string_view text, const std::string& className, GetEnd getEnd,
                 Ask ask) const {
        SourceJournal::Entry& entry = journal_->Begin(nameSpace_, text, className);
        Answer answer = ask();
        const SourceEnd end = getEnd(answer, kind_);
        const bool isOther =
            !answer.unreadClass.empty() && !EqualsIgnoringCase(answer.unreadClass, className);
        if (isOther) {
            // The association was read, the class to which it leads was not.
            SourceJournal::End(entry, Status::noError, 0, SourceEnd::answered);
            SourceJournal::End(journal_->Begin(nameSpace_, text, answer.unreadClass), answer.status,
                               0, end);
        } else {
            SourceJournal::End(entry, answer.status, answer.objects.size(), end);
        }
        return answer;
    }

    /// Notes that the class to which an association led was read. A live service leaves out the
    /// objects that it cannot read: if it returned none, each is read by its path.
    void NoteAssociated(const AssociatorsQuery& query, std::string_view wql,
                        const ObjectList& objects) const {
        if (!objects.empty()) {
            SourceJournal::End(journal_->Begin(nameSpace_, wql, objects.front()->ClassName()),
                               Status::noError, objects.size(), SourceEnd::answered);
        } else if (kind_ == MachineKind::live && !query.assocClass.empty()) {
            const Answer links = machine_->Query("REFERENCES OF {" + FormatObjectPath(query.path) +
                                                 "} WHERE ResultClass = " + query.assocClass);
            for (const ObjectPtr& link : links.objects) {
                ReadEnds(*link, query.path);
            }
        }
    }

    void ReadEnds(const Object& link, const ObjectPath& known) const {
        for (const Reference& end : link.References()) {
            if (!NamesSameObject(end.path, known)) {
                Get(FormatObjectPath(end.path));
            }
        }
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
            SourceJournal::Entry& entry = journal->Begin(nameSpace, "", "");
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
