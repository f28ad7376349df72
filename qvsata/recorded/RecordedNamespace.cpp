#include "qvsata/recorded/RecordedNamespace.h"

#include "source/Text.h"

namespace qv::service {

const RecordedClass* RecordedNamespace::Find(std::string_view className) const {
    const Content& content = content_.Read();
    return FindNamed(content.classes, content.byName, className);
}

RecordedClass& RecordedNamespace::Class(std::string_view className) {
    Content& content = content_.Change();
    if (RecordedClass* const known = FindNamed(content.classes, content.byName, className)) {
        return *known;
    }
    content.byName.Add(FoldCase(className), content.classes.size());
    return content.classes.emplace_back(std::string(className));
}

}  // namespace qv::service
