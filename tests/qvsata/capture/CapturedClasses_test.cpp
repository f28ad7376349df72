#include "qvsata/capture/CapturedClasses.h"

#include <gmock/gmock.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "SourceTree.h"

namespace qv::test {
namespace {

std::vector<std::string> Captured() {
    std::vector<std::string> lines;
    for (const capture::CapturedClass& source : capture::CapturedClasses()) {
        lines.push_back(std::string(source.nameSpace) + ' ' + std::string(source.name));
    }
    return lines;
}

std::vector<std::string> InTheScript() {
    std::ostringstream script;
    script << std::ifstream(QV_SOURCE_DIR "/tools/capture.ps1").rdbuf();
    const std::string text = script.str();
    const std::regex line(R"(@\('([^']*)', '([^']*)'\))");
    std::vector<std::string> lines;
    for (std::sregex_iterator found(text.begin(), text.end(), line), end; found != end; ++found) {
        lines.push_back((*found)[1].str() + ' ' + (*found)[2].str());
    }
    return lines;
}

TEST(CapturedClasses, AreThoseOfTheScript) {
    EXPECT_THAT(InTheScript(), testing::ElementsAreArray(Captured()));
}

}  // namespace
}  // namespace qv::test
