#include "tests/support/ExpectedCatalogue.h"

#include <algorithm>

namespace qv::test {
namespace {

std::string UsualMofType(PropertyType put) {
    switch (put) {
        case PropertyType::int32:
            return "uint16";
        case PropertyType::int32Array:
            return "uint16[]";
        case PropertyType::stringArray:
            return "string[]";
        case PropertyType::boolean:
            return "boolean";
        default:
            return "string";
    }
}

template <typename Row>
void AppendNames(std::vector<std::string>& names, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        names.push_back(row.name);
    }
}

}  // namespace

ExpectedProperty::ExpectedProperty(PropertyEntry entry)
    : put(std::move(entry)), mofType(UsualMofType(put.type)) {}

std::vector<std::string> ExpectedInstanceClassNames() {
    std::vector<std::string> names;
    AppendNames(names, ExpectedInstanceClasses());
    return names;
}

std::vector<std::string> ExpectedAssociationNames() {
    std::vector<std::string> names;
    AppendNames(names, ExpectedAssociations());
    return names;
}

std::vector<std::string> ExpectedClassNames() {
    std::vector<std::string> names = ExpectedInstanceClassNames();
    AppendNames(names, ExpectedAssociations());
    return names;
}

InstanceRecord ExpectedRecord(std::string_view className, std::string_view driver) {
    const auto& tables =
        std::ranges::find(ExpectedInstanceClasses(), className, &ExpectedInstanceClass::name)
            ->tables;
    InstanceRecord record(className);
    for (const ExpectedProperty& property :
         std::ranges::find(tables, driver, &ExpectedTable::driver)->properties) {
        record.properties.push_back(property.put);
    }
    return record;
}

}  // namespace qv::test
