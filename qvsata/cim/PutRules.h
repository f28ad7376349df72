#pragma once

#include <string_view>

#include "platform/Status.h"
#include "qvsata/cim/Instance.h"
#include "qvsata/cim/VariantType.h"
#include "source/TypedValue.h"

namespace qv::service {

/// A value as a provider passes it to Put: the type and the content of a VARIANT. A boolean is its
/// number (true may be 1 or -1), a 64-bit number decimal text. Content that a CimValue cannot hold
/// is std::monostate, and so is an array of VARIANTs unless it has no element.
struct PutValue {
    VariantType type = variant::null;
    CimValue value;
};

/// Returns a record's value as the provider puts it. A reference is put as it stands.
PutValue AsPut(const TypedValue& value);

/// Converts a value that is put on a property, by the rules documented for IWbemClassObject::Put:
/// - the property's own VARIANT type (VariantTypeOf) is stored; `null` makes the property null;
/// - another type is converted as VARIANTs are, but a whole number is not widened (`int16` on
///   uint32 is refused) and arrays are not converted;
/// - an array of VARIANTs without an element is an empty array of any type.
///
/// Where the documentation leaves it open, a value that does not fit is refused: a number outside
/// the property's range, a scalar on an array, an ill-formed date, a 64-bit number that is not
/// decimal, a real number on a text. Returns Status::noError with `stored` set, or
/// status::typeMismatch.
Status ConvertForPut(const PutValue& put, CimType type, bool isArray, CimValue& stored);

/// Puts a value on a property and records the Put with its result. Returns status::readOnly for a
/// system property, Status::notFound for a property that the class lacks, otherwise the result of
/// ConvertForPut. A refused value changes nothing.
Status PutOn(Instance& instance, std::string_view name, PutValue put);

}  // namespace qv::service
