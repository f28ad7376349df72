#include "NativeAPI/CapabilityMap.h"

#include <array>
#include <cstddef>

namespace qv {
namespace {

// Indexed by code; the texts, spelling included, are what is published.
constexpr std::array<std::string_view, 13> descriptions{
    "Unknown",
    "Other",
    "Sequential Access",
    "Random Access",
    "Supports Writing",
    "Encryption",
    "Compression",
    "Supports Removeable Media",
    "Manual Cleaning",
    "Automatic Cleaning",
    "SMART Notification",
    "Supports Dual Sided Media",
    "Predismount Eject Not Required",
};

}  // namespace

std::string_view GetCapabilityDescription(std::int32_t code) {
    const auto index = static_cast<std::size_t>(code);
    return index < descriptions.size() ? descriptions[index] : descriptions[0];
}

}  // namespace qv
