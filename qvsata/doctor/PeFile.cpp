#include "qvsata/doctor/PeFile.h"

namespace qv::doctor {
namespace {

/// Returns a number that is stored with its lowest byte first; 0 beyond the end.
std::uint32_t NumberAt(std::string_view bytes, std::size_t place, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t index = size; index-- > 0;) {
        const bool isInside = place + index < bytes.size();
        number = number * 256 + (isInside ? static_cast<unsigned char>(bytes[place + index]) : 0U);
    }
    return number;
}

}  // namespace

std::optional<std::uint16_t> MachineOf(std::string_view bytes) {
    constexpr std::size_t placeOfHeader = 0x3C;
    const std::size_t header = NumberAt(bytes, placeOfHeader, 4);
    constexpr std::string_view mark("PE\0\0", 4);
    if (!bytes.starts_with("MZ") || header > bytes.size() ||
        !bytes.substr(header).starts_with(mark)) {
        return std::nullopt;
    }
    return static_cast<std::uint16_t>(NumberAt(bytes, header + mark.size(), 2));
}

}  // namespace qv::doctor
