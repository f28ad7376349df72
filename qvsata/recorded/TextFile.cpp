#include "qvsata/recorded/TextFile.h"

#include <array>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

#include "qvsata/cim/Utf8.h"
#include "qvsata/recorded/HostFile.h"

namespace qv::service {
namespace {

constexpr std::uintmax_t mebibyte = 1U << 20U;
constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

std::string ReadBytes(const std::filesystem::path& file, const std::string& name,
                      std::uintmax_t most) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) {
        throw HostFileError(name + ": there is no such file");
    }
    if (std::filesystem::is_directory(status)) {
        throw HostFileError(name + ": a directory, not a file");
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw HostFileError(name + ": the file cannot be read");
    }
    std::string bytes;
    std::array<char, 16384> block;
    do {
        stream.read(block.data(), block.size());
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream && bytes.size() <= most);
    if (bytes.size() > most) {
        throw HostFileError(name + ": larger than " + std::to_string(most / mebibyte) +
                            " MiB (--limit)");
    }
    if (stream.bad()) {
        throw HostFileError(name + ": the file cannot be read");
    }
    return bytes;
}

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
    return TextOfBytes(ReadBytes(file, name, mostBytes), name);
}

}  // namespace qv::service
