#include "qvsata/recorded/RecordedHost.h"

#include <utility>

#include "source/Text.h"

namespace qv::service {

RecordedHost::RecordedHost(ComputerNames computer, std::string description, RecordedSystem system)
    : description_(std::move(description)),
      computer_(std::move(computer)),
      system_(std::move(system)) {
    if (computer_.server.empty()) {
        computer_.server = computer_.netbios.empty() ? "." : computer_.netbios;
    }
}

bool IsNamed(const ComputerNames& computer) {
    return computer != RecordedHost().Computer();
}

const RecordedNamespace* RecordedHost::FindNamespace(std::string_view nameSpace) const {
    return FindNamed(namespaces_, byName_, NormalNamespace(nameSpace));
}

RecordedNamespace& RecordedHost::Namespace(std::string_view nameSpace) {
    std::string name = NormalNamespace(nameSpace);
    if (RecordedNamespace* const known = FindNamed(namespaces_, byName_, name)) {
        return *known;
    }
    byName_.Add(FoldCase(name), namespaces_.size());
    return namespaces_.emplace_back(std::move(name));
}

void RecordedHost::DefineNamespace(std::string_view nameSpace) {
    Namespace(nameSpace);
}

RecordedClass& RecordedHost::DefineClass(std::string_view nameSpace, std::string_view className) {
    return Namespace(nameSpace).Class(className);
}

void RecordedHost::AddRow(std::string_view nameSpace, std::string_view className,
                          RowProperties properties) {
    DefineClass(nameSpace, className).Add(std::move(properties));
}

void RecordedHost::FailClass(std::string_view nameSpace, std::string_view className,
                             Status failure) {
    DefineClass(nameSpace, className).Fail(failure);
}

}  // namespace qv::service
