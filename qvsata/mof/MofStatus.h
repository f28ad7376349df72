#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qv::service {

/// A status of the MOF compiler or of the management service, with its documented name and number.
struct MofStatus {
    std::string_view name;
    std::uint32_t code;
};

/// Returns name and number, e.g. "WBEM_E_CANNOT_BE_ABSTRACT 0x80041065".
std::string ToText(const MofStatus& status);

/// The statuses that messages name.
namespace mof_status {

inline constexpr MofStatus invalidSuperclass{"WBEM_E_INVALID_SUPERCLASS", 0x8004100D};
inline constexpr MofStatus invalidClass{"WBEM_E_INVALID_CLASS", 0x80041010};
inline constexpr MofStatus invalidProviderRegistration{"WBEM_E_INVALID_PROVIDER_REGISTRATION",
                                                       0x80041012};
inline constexpr MofStatus alreadyExists{"WBEM_E_ALREADY_EXISTS", 0x80041019};
inline constexpr MofStatus cannotBeKey{"WBEM_E_CANNOT_BE_KEY", 0x8004101F};
inline constexpr MofStatus classHasChildren{"WBEM_E_CLASS_HAS_CHILDREN", 0x80041025};
inline constexpr MofStatus classHasInstances{"WBEM_E_CLASS_HAS_INSTANCES", 0x80041026};
inline constexpr MofStatus illegalNull{"WBEM_E_ILLEGAL_NULL", 0x80041028};
inline constexpr MofStatus invalidQualifierType{"WBEM_E_INVALID_QUALIFIER_TYPE", 0x80041029};
inline constexpr MofStatus cannotBeSingleton{"WBEM_E_CANNOT_BE_SINGLETON", 0x8004102C};
inline constexpr MofStatus invalidQualifier{"WBEM_E_INVALID_QUALIFIER", 0x80041042};
inline constexpr MofStatus circularReference{"WBEM_E_CIRCULAR_REFERENCE", 0x80041047};
inline constexpr MofStatus tooManyProperties{"WBEM_E_TOO_MANY_PROPERTIES", 0x80041051};
inline constexpr MofStatus updateTypeMismatch{"WBEM_E_UPDATE_TYPE_MISMATCH", 0x80041052};
inline constexpr MofStatus updateOverrideNotAllowed{"WBEM_E_UPDATE_OVERRIDE_NOT_ALLOWED",
                                                    0x80041053};
inline constexpr MofStatus cannotBeAbstract{"WBEM_E_CANNOT_BE_ABSTRACT", 0x80041065};
inline constexpr MofStatus propertyNameTooWide{"WBEM_E_PROPERTY_NAME_TOO_WIDE", 0x80041073};
inline constexpr MofStatus classNameTooWide{"WBEM_E_CLASS_NAME_TOO_WIDE", 0x80041074};
inline constexpr MofStatus qualifierNameTooWide{"WBEM_E_QUALIFIER_NAME_TOO_WIDE", 0x80041076};
inline constexpr MofStatus noKey{"WBEM_E_NO_KEY", 0x80041089};

inline constexpr MofStatus unrecognizedType{"WBEMMOF_E_UNRECOGNIZED_TYPE", 0x8004400B};
inline constexpr MofStatus unexpectedAlias{"WBEMMOF_E_UNEXPECTED_ALIAS", 0x8004400E};
inline constexpr MofStatus unexpectedArray{"WBEMMOF_E_UNEXPECTED_ARRAY_INIT", 0x8004400F};
inline constexpr MofStatus invalidPragma{"WBEMMOF_E_INVALID_PRAGMA", 0x80044012};
inline constexpr MofStatus invalidNamespaceSyntax{"WBEMMOF_E_INVALID_NAMESPACE_SYNTAX", 0x80044013};
inline constexpr MofStatus typeMismatch{"WBEMMOF_E_TYPE_MISMATCH", 0x80044015};
inline constexpr MofStatus cimTypeQualifier{"WBEMMOF_E_CIMTYPE_QUALIFIER", 0x8004401A};
inline constexpr MofStatus duplicateProperty{"WBEMMOF_E_DUPLICATE_PROPERTY", 0x8004401B};
inline constexpr MofStatus invalidNamespace{"WBEMMOF_E_INVALID_NAMESPACE_SPECIFICATION",
                                            0x8004401C};
inline constexpr MofStatus outOfRange{"WBEMMOF_E_OUT_OF_RANGE", 0x8004401D};
inline constexpr MofStatus nullArrayElement{"WBEMMOF_E_NULL_ARRAY_ELEM", 0x80044020};
inline constexpr MofStatus duplicateQualifier{"WBEMMOF_E_DUPLICATE_QUALIFIER", 0x80044021};
inline constexpr MofStatus incompatibleFlavors{"WBEMMOF_E_INCOMPATIBLE_FLAVOR_TYPES", 0x80044023};
inline constexpr MofStatus multipleAliases{"WBEMMOF_E_MULTIPLE_ALIASES", 0x80044024};
inline constexpr MofStatus incompatibleFlavors2{"WBEMMOF_E_INCOMPATIBLE_FLAVOR_TYPES2", 0x80044025};
inline constexpr MofStatus invalidFlags{"WBEMMOF_E_INVALID_FLAGS_SYNTAX", 0x80044028};
inline constexpr MofStatus invalidDeleteInstance{"WBEMMOF_E_INVALID_DELETEINSTANCE_SYNTAX",
                                                 0x8004402C};
inline constexpr MofStatus invalidDeleteClass{"WBEMMOF_E_INVALID_DELETECLASS_SYNTAX", 0x80044031};

}  // namespace mof_status
}  // namespace qv::service
