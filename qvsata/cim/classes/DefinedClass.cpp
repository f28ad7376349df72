#include "qvsata/cim/classes/DefinedClass.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "source/Text.h"

namespace qv::service {
namespace {

std::size_t HashOf(std::string_view name) {
    return std::hash<std::string>{}(FoldCase(name));
}

std::unique_ptr<const PropertyDefinition> Override(const PropertyDefinition& inherited,
                                                   const PropertyDefinition& declared) {
    auto resolved = std::make_unique<PropertyDefinition>(declared);
    resolved->isKey = inherited.isKey || declared.isKey;
    resolved->declaringClass = inherited.declaringClass;
    if (resolved->defaultValue.index() == 0) {
        resolved->defaultValue = inherited.defaultValue;
    }
    return resolved;
}

}  // namespace

DefinedClass::DefinedClass(ClassDefinition definition, std::shared_ptr<const DefinedClass> parent)
    : definition_(std::move(definition)),
      parent_(std::move(parent)),
      ancestorCount_(parent_ ? parent_->ancestorCount_ + 1 : 0),
      propertyCount_(parent_ ? parent_->propertyCount_ : 0),
      handedOnCount_(parent_ ? parent_->handedOnCount_ : 0),
      hasKeys_((parent_ && parent_->hasKeys_) ||
               std::ranges::any_of(definition_.properties, &PropertyDefinition::isKey)) {
    for (const Qualifier& qualifier : definition_.qualifiers) {
        if (qualifier.toSubclass) {
            handedOn_.push_back(&qualifier);
        }
    }
    handedOnCount_ += handedOn_.size();
    members_.reserve(definition_.properties.size());
    for (const PropertyDefinition& declared : definition_.properties) {
        const Member* const inherited = parent_ ? parent_->Find(declared.name) : nullptr;
        if (inherited == nullptr) {
            members_.push_back({HashOf(declared.name), propertyCount_++, &declared});
        } else {
            overrides_.push_back(Override(*inherited->property, declared));
            members_.push_back({inherited->hash, inherited->place, overrides_.back().get()});
        }
    }
}

const DefinedClass& DefinedClass::Topmost() const {
    const DefinedClass* at = this;
    while (at->Parent() != nullptr) {
        at = at->Parent();
    }
    return *at;
}

PropertyRefs DefinedClass::Properties() const {
    std::vector<const PropertyDefinition*> placed(propertyCount_);
    for (const DefinedClass* at = this; at != nullptr; at = at->Parent()) {
        for (const Member& member : at->members_) {
            if (placed[member.place] == nullptr) {
                placed[member.place] = member.property;
            }
        }
    }
    PropertyRefs properties;
    properties.reserve(placed.size());
    std::ranges::transform(placed, std::back_inserter(properties),
                           [](const PropertyDefinition* one) { return std::cref(*one); });
    return properties;
}

const DefinedClass::Member* DefinedClass::Find(std::string_view name) const {
    const std::size_t hash = HashOf(name);
    for (const DefinedClass* at = this; at != nullptr; at = at->Parent()) {
        const auto found = std::ranges::find_if(at->members_, [&](const Member& member) {
            return member.hash == hash && EqualsIgnoringCase(member.property->name, name);
        });
        if (found != at->members_.end()) {
            return &*found;
        }
    }
    return nullptr;
}

const PropertyDefinition* DefinedClass::FindProperty(std::string_view name) const {
    const Member* const found = Find(name);
    return found == nullptr ? nullptr : found->property;
}

const Qualifier* DefinedClass::FindHandedOn(std::string_view name) const {
    for (const DefinedClass* at = this; at != nullptr && at->handedOnCount_ != 0;
         at = at->Parent()) {
        const auto found = std::ranges::find_if(at->handedOn_, [name](const Qualifier* one) {
            return EqualsIgnoringCase(one->name, name);
        });
        if (found != at->handedOn_.end()) {
            return *found;
        }
    }
    return nullptr;
}

const Qualifier* DefinedClass::FindClassQualifier(std::string_view name) const {
    if (const Qualifier* const own = FindQualifier(definition_.qualifiers, name)) {
        return own;
    }
    return parent_ ? parent_->FindHandedOn(name) : nullptr;
}

std::vector<std::string> DefinedClass::Derivation() const {
    std::vector<std::string> ancestors;
    for (const DefinedClass* at = Parent(); at != nullptr; at = at->Parent()) {
        ancestors.push_back(at->definition_.name);
    }
    return ancestors;
}

bool DefinedClass::IsA(std::string_view className) const {
    const DefinedClass* at = this;
    while (at != nullptr && !EqualsIgnoringCase(at->definition_.name, className)) {
        at = at->Parent();
    }
    return at != nullptr;
}

}  // namespace qv::service
