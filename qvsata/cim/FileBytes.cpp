#include "qvsata/cim/FileBytes.h"

#include <array>
#include <fstream>
#include <system_error>

namespace qv::service {

std::string ReadFileBytes(const std::filesystem::path& file, std::uintmax_t mostBytes) {
    constexpr std::uintmax_t mebibyte = 1U << 20U;
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status)) {
        throw UnreadableFile("there is no such file");
    }
    if (std::filesystem::is_directory(status)) {
        throw UnreadableFile("a directory, not a file");
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw UnreadableFile("the file cannot be read");
    }
    std::string bytes;
    std::array<char, 16384> block;
    do {
        stream.read(block.data(), block.size());
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream && bytes.size() <= mostBytes);
    if (bytes.size() > mostBytes) {
        throw UnreadableFile("larger than " + std::to_string(mostBytes / mebibyte) +
                             " MiB (--limit)");
    }
    if (stream.bad()) {
        throw UnreadableFile("the file cannot be read");
    }
    return bytes;
}

}  // namespace qv::service
