#pragma once

#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "source/InstanceRecord.h"

// How tests write expected records, and how GoogleTest prints records.

namespace qv {

inline void PrintTo(const PropertyEntry& entry, std::ostream* out) {
    *out << (entry.key ? "key " : "") << entry.name << " = \"" << entry.value << "\" (type "
         << static_cast<std::uint32_t>(entry.type) << ")";
}

inline void PrintTo(const InstanceRecord& record, std::ostream* out) {
    *out << record.className << " {\n";
    for (const PropertyEntry& entry : record.properties) {
        *out << "    ";
        PrintTo(entry, out);
        *out << "\n";
    }
    *out << "}";
}

}  // namespace qv

namespace qv::test {

// The type codes are numbers: a record carries them to the instance.

inline PropertyEntry Key(std::string name, std::string value) {
    return {std::move(name), std::move(value), PropertyType{16}, true};
}

inline PropertyEntry Text(std::string name, std::string value) {
    return {std::move(name), std::move(value), PropertyType{16}, false};
}

inline PropertyEntry Texts(std::string name, std::string joined) {
    return {std::move(name), std::move(joined), PropertyType{17}, false};
}

inline PropertyEntry Number(std::string name, std::string decimal) {
    return {std::move(name), std::move(decimal), PropertyType{8}, false};
}

inline PropertyEntry Numbers(std::string name, std::string joined) {
    return {std::move(name), std::move(joined), PropertyType{19}, false};
}

inline InstanceRecord Record(std::string_view className, std::vector<PropertyEntry> properties) {
    InstanceRecord record(className);
    record.properties = std::move(properties);
    return record;
}

/// Returns the record of a class requested in another spelling.
inline InstanceRecord SpelledAs(const std::string& className, InstanceRecord record) {
    record.className = className;
    std::ranges::find(record.properties, "CreationClassName", &PropertyEntry::name)->value =
        className;
    return record;
}

/// Returns the values of the properties called `name`, one for each record that has it.
inline std::vector<std::string> ValuesOf(const RecordList& records, std::string_view name) {
    std::vector<std::string> values;
    for (const InstanceRecord& record : records) {
        for (const PropertyEntry& entry : record.properties) {
            if (entry.name == name) {
                values.push_back(entry.value);
            }
        }
    }
    return values;
}

/// Returns the names of a record's properties, in order.
inline std::vector<std::string> NamesOf(const InstanceRecord& record) {
    std::vector<std::string> names;
    for (const PropertyEntry& entry : record.properties) {
        names.push_back(entry.name);
    }
    return names;
}

}  // namespace qv::test
