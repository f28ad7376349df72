#include "qvsata/cim/ClassDefinition.h"

#include <algorithm>

#include "source/Text.h"

namespace qv::service {

const CimValue* InstanceDefinition::Find(std::string_view property) const {
    const auto found = std::ranges::find_if(
        values, [property](const auto& one) { return EqualsIgnoringCase(one.first, property); });
    return found == values.end() ? nullptr : &found->second;
}

const Qualifier* FindQualifier(const std::vector<Qualifier>& qualifiers, std::string_view name) {
    const auto found = std::ranges::find_if(qualifiers, [name](const Qualifier& qualifier) {
        return EqualsIgnoringCase(qualifier.name, name);
    });
    return found == qualifiers.end() ? nullptr : &*found;
}

bool HasQualifier(const std::vector<Qualifier>& qualifiers, std::string_view name) {
    const Qualifier* const found = FindQualifier(qualifiers, name);
    return found != nullptr && found->value != CimValue(false);
}

std::string_view CimTypeName(CimType type) {
    switch (type) {
        case CimType::sint16:
            return "sint16";
        case CimType::sint32:
            return "sint32";
        case CimType::real32:
            return "real32";
        case CimType::real64:
            return "real64";
        case CimType::string:
            return "string";
        case CimType::boolean:
            return "boolean";
        case CimType::object:
            return "object";
        case CimType::sint8:
            return "sint8";
        case CimType::uint8:
            return "uint8";
        case CimType::uint16:
            return "uint16";
        case CimType::uint32:
            return "uint32";
        case CimType::sint64:
            return "sint64";
        case CimType::uint64:
            return "uint64";
        case CimType::datetime:
            return "datetime";
        case CimType::reference:
            return "ref";
        case CimType::char16:
            return "char16";
    }
    return "";
}

}  // namespace qv::service
