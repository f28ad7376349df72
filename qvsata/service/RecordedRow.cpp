#include "qvsata/service/RecordedRow.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <variant>

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

bool IsSystemProperty(std::string_view name) {
    return name.starts_with("__");
}

// A text is a reference, and a key of its row, when it is the path of an instance.
void FindReferences(RecordedRow& row) {
    for (const auto& [name, value] : row.properties) {
        const auto* text = std::get_if<std::string>(&value);
        if (text == nullptr || IsSystemProperty(name)) {
            continue;
        }
        auto path = ParseObjectPath(*text);
        if (path && (!path->keys.empty() || path->singleton)) {
            row.references.emplace_back(name, *std::move(path));
            row.path.keys.push_back({name, *text, true});
        }
    }
    std::ranges::sort(row.path.keys, {}, [](const PathKey& key) { return FoldCase(key.name); });
}

}  // namespace

const CimValue* RecordedRow::FindProperty(std::string_view name) const {
    const auto found = std::ranges::find_if(properties, [name](const auto& property) {
        return EqualsIgnoringCase(property.first, name);
    });
    return found == properties.end() ? nullptr : &found->second;
}

RecordedRow MakeRow(std::string className, RowProperties properties) {
    RecordedRow row{std::move(className), std::move(properties), {}, {}, false};
    row.path.className = row.className;
    const auto* classKey = std::ranges::find_if(classKeys, [&row](const ClassKey& candidate) {
        return EqualsIgnoringCase(candidate.className, row.className);
    });
    if (classKey != classKeys.end()) {
        const CimValue* value = row.FindProperty(classKey->key);
        const auto* text = std::get_if<std::string>(value);
        if (text != nullptr) {
            row.path.keys.push_back({std::string(classKey->key), *text, true});
        }
        return row;
    }
    FindReferences(row);
    return row;
}

RecordedRow MakeClassRow(std::string className) {
    RecordedRow row{className, {}, {}, {}, true};
    row.path.className = std::move(className);
    return row;
}

RecordedObject::RecordedObject(std::shared_ptr<const RecordedRow> row,
                               std::shared_ptr<const RecordedScope> scope)
    : row_(std::move(row)), scope_(std::move(scope)) {}

bool RecordedObject::IsSelected(std::string_view name) const {
    return scope_->selection.empty() ||
           std::ranges::any_of(scope_->selection, [name](const std::string& selected) {
               return EqualsIgnoringCase(selected, name);
           });
}

std::optional<CimValue> RecordedObject::Get(std::string_view name) const {
    const CimValue* given = row_->FindProperty(name);
    if (given != nullptr && (IsSystemProperty(name) || IsSelected(name))) {
        return *given;
    }
    if (EqualsIgnoringCase(name, "__CLASS")) {
        return row_->className;
    }
    if (EqualsIgnoringCase(name, "__SERVER")) {
        return scope_->server;
    }
    if (EqualsIgnoringCase(name, "__NAMESPACE")) {
        return scope_->nameSpace;
    }
    const bool isFullPath = EqualsIgnoringCase(name, "__PATH");
    if (!isFullPath && !EqualsIgnoringCase(name, "__RELPATH")) {
        return std::nullopt;
    }
    if (row_->path.keys.empty() && !row_->isClass) {
        return CimValue{};
    }
    ObjectPath path = row_->path;
    path.server = scope_->server;
    path.nameSpace = scope_->nameSpace;
    return FormatObjectPath(path, isFullPath ? PathForm::full : PathForm::relative);
}

std::vector<std::string> RecordedObject::PropertyNames() const {
    std::vector<std::string> names;
    for (const auto& [name, value] : row_->properties) {
        if (!IsSystemProperty(name) && IsSelected(name)) {
            names.push_back(name);
        }
    }
    return names;
}

const std::string& RecordedObject::ClassName() const {
    return row_->className;
}

CimType TypeOf(const CimValue& value) {
    return std::visit(
        [](const auto& held) {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::vector<bool>>) {
                return CimType::boolean;
            } else if constexpr (std::is_same_v<T, std::int64_t> ||
                                 std::is_same_v<T, std::vector<std::int64_t>>) {
                return CimType::sint32;
            } else if constexpr (std::is_same_v<T, double> ||
                                 std::is_same_v<T, std::vector<double>>) {
                return CimType::real64;
            } else {
                return CimType::string;
            }
        },
        value);
}

bool IsArray(const CimValue& value) {
    // The arrays are the last four alternatives.
    static_assert(std::variant_size_v<CimValue> == 9);
    return value.index() >= 5;
}

}  // namespace qv::service
