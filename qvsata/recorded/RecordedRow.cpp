#include "qvsata/recorded/RecordedRow.h"

#include <algorithm>
#include <array>
#include <variant>

#include "qvsata/cim/ObjectPathParser.h"
#include "source/Text.h"

namespace qv::service {
namespace {

struct ClassKey {
    std::string_view className;
    std::string_view key;
};

constexpr std::array<ClassKey, 7> classKeys = {{
    {"Win32_DiskDrive", "DeviceID"},
    {"Win32_IDEController", "DeviceID"},
    {"Win32_DiskPartition", "DeviceID"},
    {"Win32_PnPEntity", "DeviceID"},
    {"Win32_PhysicalMedia", "Tag"},
    {"Win32_SystemDriver", "Name"},
    {"MSStorageDriver_FailurePredictStatus", "InstanceName"},
}};

// A text that is the path of an instance is a reference, and a key of its row.
void FindReferences(RecordedRow& row) {
    for (const auto& [name, value] : row.properties) {
        const auto* text = std::get_if<std::string>(&value);
        if (text == nullptr || IsSystemName(name)) {
            continue;
        }
        if (auto path = ParseInstancePath(*text)) {
            row.references.push_back({name, *std::move(path)});
            row.keys.push_back({name, *text, true});
        }
    }
    std::ranges::sort(row.keys, {}, [](const PathKey& key) { return FoldCase(key.name); });
}

}  // namespace

const CimValue* RecordedRow::FindProperty(std::string_view name) const {
    const auto found = std::ranges::find_if(properties, [name](const auto& property) {
        return EqualsIgnoringCase(property.first, name);
    });
    return found == properties.end() ? nullptr : &found->second;
}

RecordedRow MakeRow(std::shared_ptr<const std::string> className, RowProperties properties) {
    RecordedRow row{std::move(className), std::move(properties), {}, {}};
    const auto* classKey = std::ranges::find_if(classKeys, [&row](const ClassKey& candidate) {
        return EqualsIgnoringCase(candidate.className, *row.className);
    });
    if (classKey == classKeys.end()) {
        FindReferences(row);
    } else if (const auto* text = std::get_if<std::string>(row.FindProperty(classKey->key))) {
        row.keys.push_back({std::string(classKey->key), *text, true});
    }
    return row;
}

}  // namespace qv::service
