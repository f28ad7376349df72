#include "qvsata/recorded/RecordedClass.h"

#include <algorithm>
#include <utility>

namespace qv::service {
namespace {

// Returns whether the path names all its keys. Class="value" does not, so its identity differs from
// that of every other path.
bool HasIdentity(const ObjectPath& path) {
    return std::ranges::none_of(path.keys, &std::string::empty, &PathKey::name);
}

}  // namespace

void RecordedClass::Add(RowProperties properties) {
    const auto row = std::make_shared<const RecordedRow>(MakeRow(name_, std::move(properties)));
    rows_.push_back(row);
    if (!row->keys.empty()) {
        byKeys_[IdentityOf(row->keys)].push_back(row);
    }
    for (const Reference& reference : row->references) {
        RecordedRows& referencing = byReference_[IdentityOf(reference.path)];
        if (referencing.empty() || referencing.back() != row) {
            referencing.push_back(row);
        }
    }
}

void RecordedClass::Fail(Status failure) {
    *this = RecordedClass(*name_);
    failure_ = failure;
}

RecordedRowPtr RecordedClass::Find(const ObjectPath& path) const {
    if (path.singleton) {
        return nullptr;
    }
    const auto candidates = byKeys_.find(IdentityOf(path.keys));
    const RecordedRows* among = &rows_;
    if (HasIdentity(path)) {
        if (candidates == byKeys_.end()) {
            return nullptr;
        }
        among = &candidates->second;
    }
    const auto found = std::ranges::find_if(
        *among, [&path](const RecordedRowPtr& row) { return HaveSameKeys(row->keys, path.keys); });
    return found == among->end() ? nullptr : *found;
}

RecordedRows RecordedClass::Referencing(const ObjectPath& path) const {
    if (!HasIdentity(path)) {
        return rows_;
    }
    const auto candidates = byReference_.find(IdentityOf(path));
    return candidates == byReference_.end() ? RecordedRows{} : candidates->second;
}

}  // namespace qv::service
