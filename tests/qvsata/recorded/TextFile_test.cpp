#include "qvsata/recorded/TextFile.h"

#include <gtest/gtest.h>

#include <fstream>

#include "qvsata/recorded/HostFile.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

/// A file of its own for each test.
class TextFile : public testing::Test {
protected:
    std::string Read(std::string_view bytes) const {
        std::ofstream(file_.Path(), std::ios::binary) << bytes;
        return service::ReadTextFile(file_.Path(), "f.json");
    }

    std::string Refusal(std::string_view bytes) const try {
        return "read as " + Read(bytes);
    } catch (const service::HostFileError& error) {
        return error.what();
    }

private:
    const TemporaryFile file_;
};

using std::string_view_literals::operator""sv;

TEST_F(TextFile, IsUtf8) {
    EXPECT_EQ(Read("{\"ä\"}"), "{\"ä\"}");
    EXPECT_EQ(Read(""), "");
}

TEST_F(TextFile, MayBeginWithAByteOrderMark) {
    EXPECT_EQ(Read("\xEF\xBB\xBF{}"), "{}");
}

TEST_F(TextFile, MayBeUtf16OfEitherByteOrder) {
    EXPECT_EQ(Read("\xFF\xFE{\0\xE4\0\x3D\xD8\xBE\xDC}\0"sv), "{ä\U0001F4BE}");
    EXPECT_EQ(Read("\xFE\xFF\0{\0\xE4\xD8\x3D\xDC\xBE\0}"sv), "{ä\U0001F4BE}");
}

TEST_F(TextFile, IsRefusedWhereUtf16IsCutOrBroken) {
    const std::string refused = "f.json: begins like UTF-16 but is not; save it as UTF-8";
    EXPECT_EQ(Refusal("\xFF\xFE{"sv), refused);
    EXPECT_EQ(Refusal("\xFF\xFE\x3D\xD8{\0"sv), refused);
    EXPECT_EQ(Refusal("\xFF\xFE\xBE\xDC{\0"sv), refused);
}

TEST_F(TextFile, HasAHintForUtf16WithoutAMark) {
    const std::string hint = "f.json: UTF-16 without a byte-order mark; save it as UTF-8";
    EXPECT_EQ(Refusal("{\0}\0"sv), hint);
    EXPECT_EQ(Refusal("\0{\0}"sv), hint);
}

}  // namespace
}  // namespace qv::test
