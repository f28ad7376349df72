#include "qvsata/cim/VariantType.h"

namespace qv::service {
namespace {

VariantType ScalarType(CimType type) {
    switch (type) {
        case CimType::sint8:
        case CimType::sint16:
        case CimType::char16:
            return variant::int16;
        case CimType::uint8:
            return variant::uint8;
        case CimType::uint16:
        case CimType::sint32:
        case CimType::uint32:
            return variant::int32;
        case CimType::real32:
            return variant::real32;
        case CimType::real64:
            return variant::real64;
        case CimType::boolean:
            return variant::boolean;
        case CimType::object:
            return variant::object;
        case CimType::string:
        case CimType::sint64:
        case CimType::uint64:
        case CimType::datetime:
        case CimType::reference:
            break;
    }
    return variant::text;
}

}  // namespace

VariantType VariantTypeOf(CimType type, bool isArray) {
    const VariantType scalar = ScalarType(type);
    return isArray ? static_cast<VariantType>(scalar | variant::array) : scalar;
}

}  // namespace qv::service
