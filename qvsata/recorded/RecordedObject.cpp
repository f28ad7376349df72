#include "qvsata/recorded/RecordedObject.h"

#include <type_traits>
#include <utility>

#include "source/Text.h"

namespace qv::service {

std::optional<CimValue> RecordedObject::Get(std::string_view name) const {
    if (const CimValue* given = row_->FindProperty(name)) {
        return *given;
    }
    if (!IsSystemName(name)) {
        return std::nullopt;
    }
    if (EqualsIgnoringCase(name, "__CLASS")) {
        return row_->ClassName();
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
    const ObjectPath path{scope_->server, scope_->nameSpace, row_->ClassName(), row_->Keys()};
    if (path.keys.empty()) {
        return CimValue{};
    }
    return FormatObjectPath(path, isFullPath ? PathForm::full : PathForm::relative);
}

std::optional<ObjectProperty> RecordedObject::Find(std::string_view name) const {
    std::optional<CimValue> value = Get(name);
    if (!value) {
        return std::nullopt;
    }
    const CimType type = TypeOf(*value);
    const bool isArray = IsArray(*value);
    return ObjectProperty{std::string(name), type, isArray, *std::move(value), false, false};
}

std::vector<std::string> RecordedObject::Names() const {
    std::vector<std::string> names;
    for (const std::string& name : row_->Names()) {
        if (!IsSystemName(name)) {
            names.push_back(name);
        }
    }
    return names;
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

}  // namespace qv::service
