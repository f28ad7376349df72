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

}  // namespace

std::string_view KeyOfSource(std::string_view className) {
    const auto* const found = std::ranges::find_if(classKeys, [className](const ClassKey& one) {
        return EqualsIgnoringCase(one.className, className);
    });
    return found == classKeys.end() ? std::string_view() : found->key;
}

RecordedRow::RecordedRow(std::shared_ptr<const std::string> className, RowProperties properties) {
    RowShape shape{std::move(className), {}};
    shape.names.reserve(properties.size());
    values_.reserve(properties.size());
    for (auto& [name, value] : properties) {
        shape.names.push_back(std::move(name));
        values_.push_back(std::move(value));
    }
    shape_ = std::make_shared<const RowShape>(std::move(shape));
}

RowProperties RecordedRow::Properties() const {
    RowProperties properties;
    properties.reserve(values_.size());
    for (std::size_t place = 0; place < values_.size(); ++place) {
        properties.emplace_back(Names()[place], values_[place]);
    }
    return properties;
}

const CimValue* RecordedRow::FindProperty(std::string_view name) const {
    const auto found = std::ranges::find_if(
        Names(), [name](const std::string& one) { return EqualsIgnoringCase(one, name); });
    return found == Names().end() ? nullptr
                                  : &values_[static_cast<std::size_t>(found - Names().begin())];
}

std::vector<PathKey> RecordedRow::Keys() const {
    std::vector<PathKey> keys;
    const std::string_view key = KeyOfSource(ClassName());
    if (key.empty()) {
        for (const auto& [place, path] : ParsedReferences()) {
            keys.push_back({Names()[place], std::get<std::string>(values_[place]), true});
        }
        std::ranges::sort(keys, {}, [](const PathKey& one) { return FoldCase(one.name); });
    } else if (const auto* text = std::get_if<std::string>(FindProperty(key))) {
        keys.push_back({std::string(key), *text, true});
    }
    return keys;
}

std::vector<Reference> RecordedRow::References() const {
    std::vector<Reference> references;
    for (auto& [place, path] : ParsedReferences()) {
        references.push_back({Names()[place], std::move(path)});
    }
    return references;
}

std::vector<std::pair<std::size_t, ObjectPath>> RecordedRow::ParsedReferences() const {
    std::vector<std::pair<std::size_t, ObjectPath>> references;
    if (!KeyOfSource(ClassName()).empty()) {
        return references;
    }
    for (std::size_t place = 0; place < values_.size(); ++place) {
        const auto* text = std::get_if<std::string>(&values_[place]);
        if (text == nullptr || IsSystemName(Names()[place])) {
            continue;
        }
        if (auto path = ParseInstancePath(*text)) {
            references.emplace_back(place, *std::move(path));
        }
    }
    return references;
}

}  // namespace qv::service
