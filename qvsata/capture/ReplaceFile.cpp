#include "qvsata/capture/ReplaceFile.h"

#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

#include "qvsata/cim/Utf8.h"

namespace qv::capture {

void ReplaceFile(const std::filesystem::path& file, std::string_view content) {
    std::filesystem::path part = file;
    part += '.' + std::to_string(std::random_device()()) + ".part";
    std::ofstream stream(part, std::ios::binary);
    stream << content;
    stream.close();
    std::error_code error;
    if (stream) {
        std::filesystem::rename(part, file, error);
    }
    if (!stream || error) {
        std::error_code ignored;
        std::filesystem::remove(part, ignored);
        throw std::runtime_error(service::Utf8OfPath(file) + ": the file cannot be written");
    }
}

}  // namespace qv::capture
