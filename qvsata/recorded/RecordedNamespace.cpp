#include "qvsata/recorded/RecordedNamespace.h"

#include "source/Text.h"

namespace qv::service {

const RecordedClass* RecordedNamespace::Find(std::string_view className) const {
    const auto found = byName_.find(FoldCase(className));
    return found == byName_.end() ? nullptr : &classes_[found->second];
}

RecordedClass& RecordedNamespace::Class(std::string_view className) {
    const auto [found, isNew] = byName_.emplace(FoldCase(className), classes_.size());
    return isNew ? classes_.emplace_back(std::string(className)) : classes_[found->second];
}

}  // namespace qv::service
