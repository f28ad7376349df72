#include "qvsata/service/NamespaceClasses.h"

#include <algorithm>
#include <iterator>

#include "qvsata/cim/classes/SystemClasses.h"
#include "source/Text.h"

namespace qv::service {

NamespaceClasses::NamespaceClasses(const ClassRepository& repository, std::string_view server,
                                   std::string_view nameSpace) {
    for (const ClassDefinition& definition : SystemClasses()) {
        byName_[FoldCase(definition.name)].type =
            Resolve(repository.FindDefined(definition.name), server, nameSpace);
    }
    for (const ClassDefinition& definition : repository.Classes()) {
        listed_.push_back(Resolve(repository.FindDefined(definition.name), server, nameSpace));
        byName_[FoldCase(listed_.back()->name)].type = listed_.back();
    }
    AddToSuperclasses();
}

NamespaceClasses::NamespaceClasses(const NamespaceClasses& other, std::string_view server) {
    for (const auto& [name, entry] : other.byName_) {
        byName_[name].type = OnServer(*entry.type, server);
    }
    for (const ResolvedClassPtr& type : other.listed_) {
        listed_.push_back(Find(type->name));
    }
    AddToSuperclasses();
}

/// Fills place and subclasses of the entries.
void NamespaceClasses::AddToSuperclasses() {
    for (std::size_t place = 0; place < listed_.size(); ++place) {
        Entry& entry = byName_[FoldCase(listed_[place]->name)];
        entry.place = place;
        if (const std::string superclass = listed_[place]->Superclass(); !superclass.empty()) {
            byName_[FoldCase(superclass)].subclasses.push_back(&entry);
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
    if (found == byName_.end()) {
        return {};
    }
    std::vector<const Entry*> entries{&found->second};
    for (std::size_t at = 0; at < entries.size(); ++at) {
        std::ranges::copy(entries[at]->subclasses, std::back_inserter(entries));
    }
    std::erase_if(entries, [](const Entry* one) { return !one->place; });
    std::ranges::sort(entries, {}, &Entry::place);
    std::vector<ResolvedClassPtr> classes;
    std::ranges::transform(entries, std::back_inserter(classes), &Entry::type);
    return classes;
}

bool NamespaceClasses::IsA(std::string_view className, std::string_view ancestor) const {
    const ResolvedClassPtr type = Find(className);
    return type ? type->IsA(ancestor) : EqualsIgnoringCase(className, ancestor);
}

}  // namespace qv::service
