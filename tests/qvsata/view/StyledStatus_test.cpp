#include "qvsata/view/StyledStatus.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::Span;
using view::StatusSpan;
using view::Style;

TEST(StyledStatus, IsGoodAndBareWhenTheStatusIsOk) {
    EXPECT_EQ(StatusSpan({2, "OK"}), (Span{"OK", Style::good}));
}

TEST(StyledStatus, IsBadBehindAMarkForAnError) {
    EXPECT_EQ(StatusSpan({6, "Error"}), (Span{"! Error", Style::bad}));
}

TEST(StyledStatus, IsACautionBehindAMarkForAllElse) {
    EXPECT_EQ(StatusSpan({3, "Degraded"}), (Span{"! Degraded", Style::caution}));
    EXPECT_EQ(StatusSpan({0, "Unknown"}), (Span{"! Unknown", Style::caution}));
    EXPECT_EQ(StatusSpan({std::nullopt, "Starting"}), (Span{"! Starting", Style::caution}));
}

}  // namespace
}  // namespace qv::test
