#include "qvsata/capture/Leaks.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using capture::LeaksIn;
using capture::Reach;
using testing::ElementsAre;
using testing::IsEmpty;

class EachForm : public testing::TestWithParam<const char*> {};

TEST_P(EachForm, OfASecretIsFound) {
    EXPECT_THAT(LeaksIn(GetParam(), {{L"AB\\c12", Reach::everywhere}}), ElementsAre(L"AB\\c12"));
}

INSTANTIATE_TEST_SUITE_P(Leaks, EachForm,
                         testing::Values(R"(xab\\C12y)", R"(xAB\\\\c12y)", "x41425C633132y",
                                         "4241635c3231", R"(xBAc\\21)"),
                         [](const auto& form) { return "Form" + std::to_string(form.index); });

TEST(Leaks, FindsAWordOnlyAsAWord) {
    EXPECT_THAT(LeaksIn("in DEN.", {{L"den", Reach::words}}), ElementsAre(L"den"));
    EXPECT_THAT(LeaksIn("hidden", {{L"den", Reach::words}}), IsEmpty());
}

TEST(Leaks, DoesNotSearchForWhatReachesToPlacesOnly) {
    EXPECT_THAT(LeaksIn("IDE", {{L"IDE", Reach::places}}), IsEmpty());
}

}  // namespace
}  // namespace qv::test
