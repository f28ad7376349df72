#include "qvsata/report/TopologySvg.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using report::TopologyItem;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

std::string PictureOf(const TopologyItem& computer) {
    report::Html html(512);
    WriteTopologySvg(html, computer, "picture");
    return html.Take();
}

TEST(TopologySvg, DrawsABoxForEachItemAndALineToItsParent) {
    const TopologyItem disk{"#0 Model", "OK", "", view::Style::good, {}};
    const TopologyItem controller{"AHCI", "OK", "", view::Style::good, {disk, disk}};
    const std::string picture = PictureOf({"host", "", "", view::Style::plain, {controller}});
    EXPECT_THAT(picture, AllOf(HasSubstr("height=\"192\" viewBox=\"0 0 352 192\""),
                               HasSubstr("<path d=\"M8 42V71h8\"/>"),
                               HasSubstr("<path d=\"M24 92V121h8\"/>"),
                               HasSubstr("<path d=\"M24 92V171h8\"/>")));
}

TEST(TopologySvg, NamesItselfForThoseWhoCannotSeeIt) {
    EXPECT_THAT(PictureOf({"host"}), AllOf(HasSubstr("role=\"img\" aria-labelledby=\"picture\""),
                                           HasSubstr("<title id=\"picture\">The computer")));
}

TEST(TopologySvg, CutsATextThatIsWiderThanItsBox) {
    const std::string picture = PictureOf({std::string(70'000, 'x'), "", "", {}, {}});
    EXPECT_LT(picture.size(), 1000U);
    EXPECT_THAT(picture, HasSubstr("xxx…</text>"));
}

TEST(TopologySvg, EscapesTexts) {
    EXPECT_THAT(PictureOf({"</text><b>\x1B", "", "", {}, {}}),
                AllOf(HasSubstr("&lt;/text&gt;&lt;b&gt;\\x1b"), Not(HasSubstr("<b>"))));
}

}  // namespace
}  // namespace qv::test
