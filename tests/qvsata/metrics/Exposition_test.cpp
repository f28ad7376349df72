#include "qvsata/metrics/Exposition.h"

#include <gmock/gmock.h>

#include <string>

namespace qv::test {
namespace {

using metrics::ExpositionText;

/// Returns the line of a series with one label.
std::string LineWith(const std::string& value) {
    const std::string text = ExpositionText({{"m", "Help.", {{{{"l", value}}, 1}}}});
    return text.substr(text.find("\nm") + 1);
}

std::string LineOf(double value) {
    const std::string text = ExpositionText({{"m", "Help.", {{{}, value}}}});
    return text.substr(text.find("\nm") + 1);
}

TEST(Exposition, HasHelpAndTypeBeforeTheSeriesOfAFamily) {
    EXPECT_EQ(ExpositionText({{"a", "First.", {{{{"x", "1"}, {"y", "2"}}, 3}, {{}, 4}}},
                              {"b", "Second.", {{{}, 5}}}}),
              "# HELP a First.\n# TYPE a gauge\na{x=\"1\",y=\"2\"} 3\na 4\n"
              "# HELP b Second.\n# TYPE b gauge\nb 5\n");
}

TEST(Exposition, LeavesAFamilyWithoutSeriesOut) {
    EXPECT_EQ(ExpositionText({{"a", "Nothing.", {}}}), "");
}

TEST(Exposition, LeavesALabelWithoutValueOut) {
    EXPECT_EQ(LineWith(""), "m 1\n");
}

TEST(Exposition, EscapesBackslashesAndQuotes) {
    EXPECT_EQ(LineWith(R"(SCSI\DISK"2")"), "m{l=\"SCSI\\\\DISK\\\"2\\\"\"} 1\n");
}

TEST(Exposition, ShowsControlCharactersAsCodes) {
    EXPECT_EQ(LineWith("a\nb\x1B\u202E"), "m{l=\"a\\\\x0ab\\\\x1b\\\\u202e\"} 1\n");
}

TEST(Exposition, ShowsBytesThatAreNotUtf8AsCodes) {
    EXPECT_EQ(LineWith("a\xFF"), "m{l=\"a\\\\xff\"} 1\n");
}

TEST(Exposition, KeepsALabelOf128Bytes) {
    EXPECT_EQ(LineWith(std::string(128, 'x')), "m{l=\"" + std::string(128, 'x') + "\"} 1\n");
}

TEST(Exposition, CutsALongLabelTo128Bytes) {
    EXPECT_EQ(LineWith(std::string(129, 'x')), "m{l=\"" + std::string(125, 'x') + "…\"} 1\n");
}

TEST(Exposition, CutsALongLabelBetweenCharacters) {
    EXPECT_EQ(LineWith(std::string(124, 'x') + "円円円"),
              "m{l=\"" + std::string(124, 'x') + "…\"} 1\n");
}

TEST(Exposition, PrintsWholeNumbersInFull) {
    EXPECT_EQ(LineOf(4000784417280), "m 4000784417280\n");
    EXPECT_EQ(LineOf(0), "m 0\n");
}

TEST(Exposition, PrintsFractionsOfASecond) {
    EXPECT_EQ(LineOf(0.000125), "m 0.000125\n");
    EXPECT_EQ(LineOf(1.5), "m 1.5\n");
}

}  // namespace
}  // namespace qv::test
