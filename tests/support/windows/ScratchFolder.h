#pragma once

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qv::test {

/// An empty folder; the destructor deletes it with its contents.
class ScratchFolder {
public:
    ScratchFolder()
        : path_(std::filesystem::temp_directory_path() /
                (L"QVLogTests." + std::to_wstring(GetCurrentProcessId()) + L"." +
                 std::to_wstring(++count_))) {
        // Left by a killed process with this ID.
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    /// Ends in a backslash.
    std::wstring Path() const { return path_.native() + L"\\"; }
    std::wstring File(std::wstring_view name) const { return Path().append(name); }

    std::size_t FileCount() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_),
                                                      std::filesystem::directory_iterator()));
    }

private:
    inline static std::atomic<int> count_ = 0;
    std::filesystem::path path_;
};

inline std::string ReadBytesOf(const std::wstring& file) {
    std::ifstream stream(std::filesystem::path(file), std::ios::binary);
    if (!stream) {
        throw std::runtime_error("no such file");
    }
    std::string bytes(std::filesystem::file_size(file), '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

inline void WriteBytesTo(const std::wstring& file, std::string_view bytes) {
    std::ofstream(std::filesystem::path(file), std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Returns the lines of a file of UTF-16 text without their line ends, including a last line
/// without one.
inline std::vector<std::wstring> ReadLinesOf(const std::wstring& file) {
    const std::string bytes = ReadBytesOf(file);
    std::wstring text(bytes.size() / 2, L'\0');
    bytes.copy(reinterpret_cast<char*>(text.data()), text.size() * 2);
    std::vector<std::wstring> lines;
    std::size_t from = 0;
    for (std::size_t end = text.find(L"\r\n"); end != text.npos; end = text.find(L"\r\n", from)) {
        lines.push_back(text.substr(from, end - from));
        from = end + 2;
    }
    if (from < text.size()) {
        lines.push_back(text.substr(from));
    }
    return lines;
}

/// Returns a common log's line without its time: "[Level] text".
inline std::wstring TextOf(const std::wstring& line) {
    return line.substr(line.find(L'['));
}

}  // namespace qv::test
