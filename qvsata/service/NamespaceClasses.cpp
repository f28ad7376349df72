#include "qvsata/service/NamespaceClasses.h"

#include "qvsata/cim/SystemClasses.h"
#include "source/Text.h"

namespace qv::service {

NamespaceClasses::NamespaceClasses(const ClassRepository& repository, std::string_view server,
                                   std::string_view nameSpace) {
    for (const ClassDefinition& definition : SystemClasses()) {
        byName_[FoldCase(definition.name)].type =
            Resolve(repository, definition.name, server, nameSpace);
    }
    for (const ClassDefinition& definition : repository.Classes()) {
        listed_.push_back(Resolve(repository, definition.name, server, nameSpace));
        byName_[FoldCase(definition.name)].type = listed_.back();
    }
    AddToAncestors();
}

NamespaceClasses::NamespaceClasses(const NamespaceClasses& other, std::string_view server) {
    for (const auto& [name, entry] : other.byName_) {
        byName_[name].type = OnServer(*entry.type, server);
    }
    for (const ResolvedClassPtr& type : other.listed_) {
        listed_.push_back(Find(type->name));
    }
    AddToAncestors();
}

/// Fills withSubclasses.
void NamespaceClasses::AddToAncestors() {
    for (const ResolvedClassPtr& type : listed_) {
        byName_[FoldCase(type->name)].withSubclasses.push_back(type);
        for (const std::string& ancestor : type->derivation) {
            byName_[FoldCase(ancestor)].withSubclasses.push_back(type);
        }
    }
}

ResolvedClassPtr NamespaceClasses::Find(std::string_view className) const {
    if (named_) {
        return named_->Find(className);
    }
    const auto found = byName_.find(FoldCase(className));
    return found == byName_.end() ? nullptr : found->second.type;
}

std::vector<ResolvedClassPtr> NamespaceClasses::WithSubclasses(std::string_view className) const {
    if (named_) {
        const ResolvedClassPtr type = named_->Find(className);
        return type ? std::vector{type} : std::vector<ResolvedClassPtr>{};
    }
    const auto found = byName_.find(FoldCase(className));
    return found == byName_.end() ? std::vector<ResolvedClassPtr>{} : found->second.withSubclasses;
}

bool NamespaceClasses::IsA(std::string_view className, std::string_view ancestor) const {
    const ResolvedClassPtr type = Find(className);
    return type ? type->IsA(ancestor) : EqualsIgnoringCase(className, ancestor);
}

}  // namespace qv::service
