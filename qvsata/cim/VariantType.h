#pragma once

#include <cstdint>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// The type of a VARIANT by its number (VARENUM of wtypes.h).
using VariantType = std::uint16_t;

/// The types of VARIANTs that hold the value of a property.
namespace variant {
inline constexpr VariantType null = 1;
inline constexpr VariantType int16 = 2;
inline constexpr VariantType int32 = 3;
inline constexpr VariantType real32 = 4;
inline constexpr VariantType real64 = 5;
inline constexpr VariantType text = 8;
inline constexpr VariantType boolean = 11;
inline constexpr VariantType any = 12;  ///< an element of any type: VT_VARIANT
inline constexpr VariantType object = 13;
inline constexpr VariantType int8 = 16;
inline constexpr VariantType uint8 = 17;
inline constexpr VariantType uint16 = 18;
inline constexpr VariantType uint32 = 19;
inline constexpr VariantType int64 = 20;
inline constexpr VariantType uint64 = 21;
inline constexpr VariantType nativeInt = 22;
inline constexpr VariantType nativeUint = 23;
inline constexpr VariantType array = 0x2000;  ///< a flag, added to the type of the elements
}  // namespace variant

/// Returns the VARIANT type in which the management service delivers a CIM type: `int32` for uint16
/// and uint32, `int16` for sint8, decimal text for 64-bit numbers.
VariantType VariantTypeOf(CimType type, bool isArray);

}  // namespace qv::service
