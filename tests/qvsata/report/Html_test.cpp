#include "qvsata/report/Html.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using report::Html;
using report::Shortened;
using testing::EndsWith;
using testing::StartsWith;

std::string TextOf(const std::string& text) {
    Html html(1000);
    html.Text(text);
    return html.Take();
}

TEST(Html, EscapesWhatWouldBeMarkup) {
    EXPECT_EQ(TextOf("<script>&amp;'\"</p>"), "&lt;script&gt;&amp;amp;&#39;&quot;&lt;/p&gt;");
}

TEST(Html, EscapesTheValueOfAnAttribute) {
    Html html(1000);
    html.Inline("b", "text", {{"title", "\" onclick=\"x"}});
    EXPECT_EQ(html.Take(), "<b title=\"&quot; onclick=&quot;x\">text</b>");
}

TEST(Html, ShowsCharactersThatControlTheReaderAsCodes) {
    EXPECT_EQ(TextOf("a\x1B[2J\r\n\u202Eb\u0085"), R"(a\x1b[2J\x0d\x0a\u202eb\x85)");
}

TEST(Html, ShowsBytesAndCharactersThatNoDocumentMayHaveAsCodes) {
    EXPECT_EQ(TextOf("\xFF"
                     "a\uFFFE\uFFFF\x01"),
              R"(\xffa\ufffe\uffff\x01)");
}

TEST(Html, LeavesTextOfEveryLanguageAsItIs) {
    EXPECT_EQ(TextOf("標準 AHCI Привет שלום 😀"), "標準 AHCI Привет שלום 😀");
}

TEST(Html, ClosesElementsInTheReverseOrder) {
    Html html(1000);
    {
        const auto outer = html.In("ul");
        const auto inner = html.In("li", {{"class", "x"}});
        html.Text("text");
    }
    html.Empty("hr", {});
    EXPECT_EQ(html.Take(), "\n<ul>\n<li class=\"x\">text</li></ul>\n<hr/>");
}

TEST(Html, LeavesOutTheMiddleOfALongText) {
    EXPECT_EQ(Shortened("abcdefghijklmnop", 8), "abcdef [... 8 characters ...] op");
    EXPECT_EQ(Shortened("abcdefgh", 8), "abcdefgh");
}

TEST(Html, CountsCharactersNotBytes) {
    EXPECT_EQ(Shortened("éééééééé", 8), "éééééééé");
    EXPECT_EQ(Shortened("ééééééééé", 8), "éééééé [... 1 characters ...] éé");
}

TEST(Html, BoundsALongTextOfADevice) {
    Html html(512);
    html.Text(std::string(64 * 1024, 'x') + "end");
    const std::string text = html.Take();
    EXPECT_LT(text.size(), 600U);
    EXPECT_THAT(text, StartsWith("xxx"));
    EXPECT_THAT(text, EndsWith("xend"));
}

}  // namespace
}  // namespace qv::test
