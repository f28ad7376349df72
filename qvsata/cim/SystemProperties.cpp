#include "qvsata/cim/SystemProperties.h"

#include <algorithm>
#include <array>

#include "source/Text.h"

namespace qv::service {
namespace {

struct Context {
    const ResolvedClass& type;
    Genus genus;
    const std::optional<std::string>& relativePath;
};

CimValue PathOf(const Context& object) {
    if (!object.relativePath) {
        return {};
    }
    return R"(\\)" + object.type.server + '\\' + object.type.nameSpace + ':' + *object.relativePath;
}

CimValue OrNull(std::string text) {
    return text.empty() ? CimValue() : CimValue(std::move(text));
}

struct Entry {
    std::string_view name;
    CimType type;
    bool isArray;
    CimValue (*value)(const Context&);
};

constexpr std::array entries{
    Entry{
        "__GENUS", CimType::sint32, false,
        [](const Context& object) -> CimValue { return static_cast<std::int64_t>(object.genus); }},
    Entry{"__CLASS", CimType::string, false,
          [](const Context& object) -> CimValue { return object.type.name; }},
    Entry{"__SUPERCLASS", CimType::string, false,
          [](const Context& object) { return OrNull(object.type.Superclass()); }},
    Entry{"__DYNASTY", CimType::string, false,
          [](const Context& object) -> CimValue { return object.type.Dynasty(); }},
    Entry{"__RELPATH", CimType::string, false,
          [](const Context& object) {
              return object.relativePath ? CimValue(*object.relativePath) : CimValue();
          }},
    Entry{"__PROPERTY_COUNT", CimType::sint32, false,
          [](const Context& object) -> CimValue {
              return static_cast<std::int64_t>(object.type.PropertyCount());
          }},
    Entry{"__DERIVATION", CimType::string, true,
          [](const Context& object) -> CimValue { return object.type.Derivation(); }},
    Entry{"__SERVER", CimType::string, false,
          [](const Context& object) -> CimValue { return object.type.server; }},
    Entry{"__NAMESPACE", CimType::string, false,
          [](const Context& object) -> CimValue { return object.type.nameSpace; }},
    Entry{"__PATH", CimType::string, false, &PathOf},
};

}  // namespace

std::optional<ObjectProperty> SystemProperty(std::string_view name, const ResolvedClass& type,
                                             Genus genus,
                                             const std::optional<std::string>& relativePath) {
    const auto* entry = std::ranges::find_if(
        entries, [name](const Entry& one) { return EqualsIgnoringCase(one.name, name); });
    if (entry == entries.end()) {
        return std::nullopt;
    }
    ObjectProperty property;
    property.name = entry->name;
    property.type = entry->type;
    property.isArray = entry->isArray;
    property.value = entry->value({type, genus, relativePath});
    return property;
}

}  // namespace qv::service
