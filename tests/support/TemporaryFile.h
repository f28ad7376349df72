#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace qv::test {

/// The path of a file or folder in the folder for temporary files, with a name that no other
/// process uses. The destructor deletes it.
class TemporaryFile {
public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove_all(path_); }

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                  ("qv-test-" + std::to_string(std::random_device()()));
};

}  // namespace qv::test
