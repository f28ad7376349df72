#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// How a property's text is converted to a typed value of the management service. A record may hold
/// any other code; it is skipped when the instance is filled.
enum class PropertyType : std::uint32_t {
    untyped = 0,       ///< string
    uint8 = 7,         ///< 8-bit unsigned number
    int32 = 8,         ///< 32-bit signed number
    integer = 9,       ///< the same as int32
    text = 10,         ///< the same as string
    boolean = 11,      ///< true exactly for the text "TRUE" in any letter case
    reference = 14,    ///< relative object path; published after the namespace path prefix
    string = 16,       ///< string
    stringArray = 17,  ///< texts joined by listSeparator
    int32Array = 19,   ///< decimal numbers joined by listSeparator
    textArray = 21,    ///< the same as stringArray
};

/// The separator between the elements in the text of an array value.
inline constexpr std::string_view listSeparator = "*-*";

/// One property as it was put. The value is text for every type; numbers are decimal.
struct PropertyEntry {
    std::string name;
    std::string value;
    PropertyType type = PropertyType::untyped;
    bool key = false;

    bool operator==(const PropertyEntry&) const = default;
};

/// One published instance as text, the result of a builder. Entries are appended, never replaced.
/// If two entries have one name, the later one counts in the published instance, the earlier one in
/// GetPropertyEntry.
struct InstanceRecord {
    explicit InstanceRecord(std::string_view requestedClass) : className(requestedClass) {}

    std::string className;  ///< as the requesting caller spelled it
    std::vector<PropertyEntry> properties;

    bool operator==(const InstanceRecord&) const = default;
};

using RecordList = std::vector<InstanceRecord>;

/// Appends a property that is not a key.
void SetProperty(InstanceRecord& record, std::string_view name, std::string value,
                 PropertyType type = PropertyType::string);

/// Appends a string key.
void SetKeyProperty(InstanceRecord& record, std::string_view name, std::string value);

/// Appends a key that refers to another instance by its relative object path.
void SetKeyReference(InstanceRecord& record, std::string_view name, std::string objectPath);

/// Appends the record to the end of the list.
void AppendRecord(RecordList& list, InstanceRecord record);

/// Returns a copy of the first entry with exactly this name, or an empty entry.
PropertyEntry GetPropertyEntry(const InstanceRecord& record, std::string_view name);

/// Returns the relative object path Class.Key="value",Key2="value". Keys are in the order in which
/// they were put; double quotes inside a value are escaped by a backslash. Backslashes are not
/// escaped: paths are compared in this form.
std::string BuildObjectPath(const InstanceRecord& record);

}  // namespace qv
