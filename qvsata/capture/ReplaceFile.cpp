#include "qvsata/capture/ReplaceFile.h"

#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

#include "qvsata/cim/Utf8.h"

namespace qv::capture {

namespace {

namespace fs = std::filesystem;

bool WriteTo(const fs::path& file, std::string_view content) {
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    stream.close();
    return !stream.fail();
}

bool Replace(const fs::path& file, std::string_view content) {
    fs::path part = file;
    part += '.' + std::to_string(std::random_device()()) + ".part";
    std::error_code error;
    if (WriteTo(part, content)) {
        fs::rename(part, file, error);
        if (!error) {
            return true;
        }
    }
    fs::remove(part, error);
    return false;
}

bool ReplaceOrWriteTo(const fs::path& file, std::string_view content) {
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (!fs::exists(status)) {
        return Replace(file, content);
    }
    if (!fs::is_regular_file(status)) {
        return WriteTo(file, content);
    }
    const bool isLink = fs::is_symlink(fs::symlink_status(file, error));
    const fs::path target = isLink ? fs::canonical(file, error) : file;
    return !error && Replace(target, content);
}

}  // namespace

void ReplaceFile(const std::filesystem::path& file, std::string_view content) {
    if (!ReplaceOrWriteTo(file, content)) {
        throw std::runtime_error(service::Utf8OfPath(file) + ": the file cannot be written");
    }
}

}  // namespace qv::capture
