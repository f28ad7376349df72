#include "source/InstanceRecord.h"

#include <algorithm>
#include <utility>

namespace qv {

void SetProperty(InstanceRecord& record, std::string_view name, std::string value,
                 PropertyType type) {
    record.properties.push_back({std::string(name), std::move(value), type, false});
}

void SetKeyProperty(InstanceRecord& record, std::string_view name, std::string value) {
    record.properties.push_back({std::string(name), std::move(value), PropertyType::string, true});
}

void SetKeyReference(InstanceRecord& record, std::string_view name, std::string objectPath) {
    record.properties.push_back(
        {std::string(name), std::move(objectPath), PropertyType::reference, true});
}

void AppendRecord(RecordList& list, InstanceRecord record) {
    list.push_back(std::move(record));
}

PropertyEntry GetPropertyEntry(const InstanceRecord& record, std::string_view name) {
    const auto found = std::ranges::find(record.properties, name, &PropertyEntry::name);
    return found == record.properties.end() ? PropertyEntry{} : *found;
}

std::string BuildObjectPath(const InstanceRecord& record) {
    std::string path = record.className + ".";
    bool first = true;
    for (const PropertyEntry& entry : record.properties) {
        if (!entry.key) {
            continue;
        }
        if (!std::exchange(first, false)) {
            path += ',';
        }
        path += entry.name;
        path += "=\"";
        for (const char character : entry.value) {
            if (character == '"') {
                path += '\\';
            }
            path += character;
        }
        path += '"';
    }
    return path;
}

}  // namespace qv
