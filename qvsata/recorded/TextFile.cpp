#include "qvsata/recorded/TextFile.h"

#include <optional>
#include <string_view>
#include <utility>

#include "qvsata/cim/Utf8.h"
#include "qvsata/recorded/HostFile.h"

namespace qv::service {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

/// Returns UTF-16 as UTF-8.
/// @param high the place in each pair of bytes of the one with the high bits
std::optional<std::string> Decoded(std::string_view bytes, std::size_t high) {
    if (bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    std::u16string units;
    for (std::size_t place = 0; place < bytes.size(); place += 2) {
        const auto byte = [&](std::size_t of) {
            return static_cast<unsigned char>(bytes[place + of]);
        };
        units += static_cast<char16_t>((byte(high) << 8U) | byte(1 - high));
    }
    return Utf8OfUtf16(units);
}

}  // namespace

std::string TextOfBytes(std::string bytes, const std::string& name) {
    if (bytes.starts_with(utf8Mark)) {
        return bytes.substr(utf8Mark.size());
    }
    const bool isBigEndian = bytes.starts_with(bigEndianMark);
    if (isBigEndian || bytes.starts_with(littleEndianMark)) {
        const std::optional<std::string> text =
            Decoded(std::string_view(bytes).substr(littleEndianMark.size()), isBigEndian ? 0 : 1);
        if (!text) {
            throw HostFileError(name + ": begins like UTF-16 but is not; save it as UTF-8");
        }
        return *text;
    }
    if (bytes.find('\0') < 2) {
        throw HostFileError(name + ": UTF-16 without a byte-order mark; save it as UTF-8");
    }
    return bytes;
}

std::string ReadTextFile(const std::filesystem::path& file, const std::string& name,
                         std::uintmax_t mostBytes) {
    std::string bytes;
    try {
        bytes = ReadFileBytes(file, mostBytes);
    } catch (const UnreadableFile& why) {
        throw HostFileError(name + ": " + why.what());
    }
    return TextOfBytes(std::move(bytes), name);
}

}  // namespace qv::service
