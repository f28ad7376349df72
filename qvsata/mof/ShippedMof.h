#pragma once

#include <array>
#include <string_view>

namespace qv::service {

/// The shipped MOF files that define classes, in the order of installation: each builds on those
/// before it.
inline constexpr std::array<std::string_view, 6> shippedClassFiles{
    "cim_schema.mof",          "cim_schema_later.mof",     "qv_computer_system.mof",
    "qv_group_collection.mof", "qv_software_identity.mof", "qvwmisata.mof"};

/// The shipped MOF file that registers the providers. Only a real management service needs it.
inline constexpr std::string_view shippedRegistrationFile = "qvwmisata_provider.mof";

/// The shipped MOF file that removes the providers and their classes.
inline constexpr std::string_view shippedRemovalFile = "qvwmisata_remove.mof";

}  // namespace qv::service
