// Runs every target on its corpus and expects no findings.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "SourceTree.h"
#include "fuzz/Targets.h"

namespace qv::fuzz {
namespace {

std::vector<std::filesystem::path> CorpusOf(const Target& target) {
    const auto folder = std::filesystem::path(QV_SOURCE_DIR) / "fuzz/corpus" / target.name;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files.push_back(entry.path());
    }
    return files;
}

std::string FindingsIn(const Target& target, const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> read{std::istreambuf_iterator<char>(stream), {}};
    try {
        const std::vector<std::uint8_t> input(read.begin(), read.end());
        target.run(input);
    } catch (const std::exception& finding) {
        return file.string() + ": " + finding.what() + '\n';
    }
    return {};
}

class Corpus : public testing::TestWithParam<Target> {};

TEST_P(Corpus, HasNoFindings) {
    const auto files = CorpusOf(GetParam());
    std::string findings;
    for (const auto& file : files) {
        findings += FindingsIn(GetParam(), file);
    }
    EXPECT_FALSE(files.empty());
    EXPECT_EQ(findings, "");
}

INSTANTIATE_TEST_SUITE_P(EveryTarget, Corpus, testing::ValuesIn(targets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace
}  // namespace qv::fuzz
