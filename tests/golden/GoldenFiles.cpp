#include "tests/golden/GoldenFiles.h"
#include "SourceTree.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace qv::test {
namespace {

const std::filesystem::path source(QV_SOURCE_DIR);

std::filesystem::path GoldenFile(std::string_view name) {
    return source / "tests" / "golden" / (std::string(name) + ".txt");
}

/// Removes the first line of a text and returns it.
std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

/// Returns the recorded hosts of a folder, sorted by name.
std::vector<std::filesystem::path> HostsIn(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".json") {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace

std::vector<std::filesystem::path> ShippedHosts() {
    return HostsIn(source / "hosts");
}

std::vector<std::filesystem::path> RealMachines() {
    return HostsIn(source / "tests/hosts");
}

std::string ReadGolden(std::string_view name) {
    std::ifstream file(GoldenFile(name), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void UpdateGolden(std::string_view name, std::string_view text) {
    const char* update = std::getenv("QV_UPDATE_GOLDEN");
    if (update != nullptr && std::string_view(update) == "1") {
        std::ofstream(GoldenFile(name), std::ios::binary) << text;
    }
}

std::string FirstDifference(std::string_view published, std::string_view golden) {
    for (int number = 1; !published.empty() || !golden.empty(); ++number) {
        const std::string_view now = TakeLine(published);
        const std::string_view then = TakeLine(golden);
        if (now != then) {
            return "line " + std::to_string(number) + "\n  published: " + std::string(now) +
                   "\n  golden:    " + std::string(then);
        }
    }
    return {};
}

}  // namespace qv::test
