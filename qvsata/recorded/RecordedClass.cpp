#include "qvsata/recorded/RecordedClass.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "qvsata/recorded/HashIndex.h"
#include "source/Text.h"

namespace qv::service {
namespace {

// Returns whether the path names all its keys. Class="value" does not, so its identity differs from
// that of every other path.
bool HasIdentity(const ObjectPath& path) {
    return std::ranges::none_of(path.keys, &std::string::empty, &PathKey::name);
}

}  // namespace

struct RecordedClass::Content {
    std::shared_ptr<const std::string> name;
    RowShapes shapes;
    RecordedRows rows;
    HashIndex byKeys;       ///< by the identity of the row's keys
    HashIndex byReference;  ///< by the identity of a reference
};

const RecordedRows& RecordedClass::Rows() const {
    return content_.Read().rows;
}

void RecordedClass::Add(RowProperties properties) {
    Content& content = content_.Change();
    if (!content.name) {
        content.name = std::make_shared<const std::string>(name_);
    }
    const std::size_t place = content.rows.size();
    RecordedRow& row = content.rows.emplace_back(content.name, std::move(properties));
    row.ShareShape(content.shapes);
    const std::vector<Reference> references = row.References();
    if (!references.empty()) {
        content.byKeys.Add(IdentityOf(references), place);
    } else if (const auto keys = row.Keys(); !keys.empty()) {
        content.byKeys.Add(IdentityOf(keys), place);
    }
    for (const Reference& reference : references) {
        content.byReference.Add(IdentityOf(reference.path), place);
    }
}

void RecordedClass::Fail(Status failure) {
    content_ = {};
    failure_ = failure;
}

const RecordedRow* RecordedClass::Find(const ObjectPath& path) const {
    if (path.singleton) {
        return nullptr;
    }
    const auto isNamed = [&path](const RecordedRow& row) {
        return HaveSameKeys(row.Keys(), path.keys);
    };
    const RecordedRows& rows = Rows();
    if (!HasIdentity(path)) {
        const auto found = std::ranges::find_if(rows, isNamed);
        return found == rows.end() ? nullptr : &*found;
    }
    const auto place = content_.Read().byKeys.FindFirst(
        IdentityOf(path.keys), [&](std::size_t one) { return isNamed(rows[one]); });
    return place ? &rows[*place] : nullptr;
}

const RecordedRow* RecordedClass::FindText(std::string_view property, std::string_view text) const {
    const auto has = [&](const RecordedRow& row) {
        const auto* const own = std::get_if<std::string>(row.FindProperty(property));
        return (own == nullptr ? std::string_view() : *own) == text;
    };
    const RecordedRows& rows = Rows();
    // A row without a text has no key.
    if (text.empty() || !EqualsIgnoringCase(property, KeyOfSource(name_))) {
        const auto found = std::ranges::find_if(rows, has);
        return found == rows.end() ? nullptr : &*found;
    }
    const std::vector<PathKey> key = {{std::string(property), std::string(text), true}};
    const auto place = content_.Read().byKeys.FindFirst(
        IdentityOf(key), [&](std::size_t one) { return has(rows[one]); });
    return place ? &rows[*place] : nullptr;
}

std::vector<const RecordedRow*> RecordedClass::Referencing(const ObjectPath& path) const {
    const Content& content = content_.Read();
    std::vector<const RecordedRow*> found;
    if (!HasIdentity(path)) {
        std::ranges::transform(content.rows, std::back_inserter(found),
                               [](const RecordedRow& row) { return &row; });
    } else {
        std::ranges::transform(content.byReference.Find(IdentityOf(path)),
                               std::back_inserter(found),
                               [&](std::size_t place) { return &content.rows[place]; });
    }
    return found;
}

}  // namespace qv::service
