#include "qvsata/service/RecordedHost.h"

#include <algorithm>

#include "qvsata/service/RecordedQuery.h"
#include "qvsata/service/RecordedRow.h"
#include "source/Text.h"

namespace qv::service {

struct RecordedHost::Data {
    std::string description;
    ComputerNames computer;
    std::vector<RecordedNamespace> namespaces;

    RecordedNamespace* FindNamespace(std::string_view nameSpace) {
        const auto found = std::ranges::find_if(namespaces, [nameSpace](const auto& candidate) {
            return IsSameNamespace(candidate.name, nameSpace);
        });
        return found == namespaces.end() ? nullptr : &*found;
    }

    RecordedNamespace& GetNamespace(std::string_view nameSpace) {
        RecordedNamespace* found = FindNamespace(nameSpace);
        return found != nullptr
                   ? *found
                   : namespaces.emplace_back(RecordedNamespace{NormalNamespace(nameSpace), {}});
    }

    ClassRows& GetClass(std::string_view nameSpace, std::string_view className) {
        RecordedNamespace& owner = GetNamespace(nameSpace);
        ClassRows* found = FindClass(owner, className);
        return found != nullptr
                   ? *found
                   : owner.classes.emplace_back(ClassRows{std::string(className), {}, false});
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
    return *this = RecordedHost(other);
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
    std::ranges::transform(data_->namespaces, std::back_inserter(names), &RecordedNamespace::name);
    return names;
}

std::vector<std::string> RecordedHost::Classes(std::string_view nameSpace) const {
    std::vector<std::string> names;
    if (const RecordedNamespace* found = data_->FindNamespace(nameSpace)) {
        std::ranges::transform(found->classes, std::back_inserter(names), &ClassRows::name);
    }
    return names;
}

QueryAnswer RecordedHost::RunQuery(std::string_view nameSpace, std::string_view query) const {
    try {
        return RunQuery(nameSpace, ParseWql(query));
    } catch (const WqlError& error) {
        return {QueryStatus::invalidQuery, error.what(), {}};
    }
}

QueryAnswer RecordedHost::RunQuery(std::string_view nameSpace, const WqlQuery& query) const {
    const RecordedNamespace* found = data_->FindNamespace(nameSpace);
    if (found == nullptr) {
        return {QueryStatus::invalidNamespace, "no namespace " + std::string(nameSpace), {}};
    }
    return RunRecordedQuery(*this, *found, nameSpace, query);
}

std::optional<RecordedObject> RecordedHost::Find(std::string_view nameSpace,
                                                 const ObjectPath& path) const {
    // The connection's spelling is kept where the path means the same namespace.
    const std::string_view wanted =
        path.nameSpace.empty() || IsSameNamespace(path.nameSpace, nameSpace) ? nameSpace
                                                                             : path.nameSpace;
    const RecordedNamespace* owner = data_->FindNamespace(wanted);
    const ClassRows* rows = owner == nullptr ? nullptr : FindClass(*owner, path.className);
    if (rows == nullptr || path.keys.empty()) {
        return std::nullopt;
    }
    const auto found = std::ranges::find_if(rows->rows, [&path](const RecordedRowPtr& row) {
        return NamesSameObject(row->path, path);
    });
    if (found == rows->rows.end()) {
        return std::nullopt;
    }
    return RecordedObject(*found, std::make_shared<RecordedScope>(RecordedScope{
                                      data_->computer.server, NormalNamespace(wanted), {}}));
}

}  // namespace qv::service
