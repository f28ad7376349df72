#include "qvsata/view/Health.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::Health;
using view::Severity;
using view::SeverityOf;
using view::WithPrediction;

TEST(Health, IsAsBadAsItsCode) {
    EXPECT_EQ(SeverityOf({2, "OK"}), Severity::fine);
    EXPECT_EQ(SeverityOf({0, "Unknown"}), Severity::unknown);
    EXPECT_EQ(SeverityOf({std::nullopt, "no status"}), Severity::unknown);
    EXPECT_EQ(SeverityOf({3, "Degraded"}), Severity::degraded);
    EXPECT_EQ(SeverityOf({5, "Pred Fail"}), Severity::failurePredicted);
    EXPECT_EQ(SeverityOf({6, "Error"}), Severity::failed);
}

TEST(Health, SaysThatAFailureIsPredictedWhereTheStatusDoesNot) {
    EXPECT_EQ(WithPrediction({2, "OK"}, true), (Health{5, "failure predicted (reported OK)"}));
    EXPECT_EQ(WithPrediction({3, "Degraded"}, true),
              (Health{5, "failure predicted (reported Degraded)"}));
}

TEST(Health, StaysAsReportedWhereTheStatusSaysIt) {
    EXPECT_EQ(WithPrediction({5, "Pred Fail"}, true), (Health{5, "Pred Fail"}));
    EXPECT_EQ(WithPrediction({6, "Error"}, true), (Health{6, "Error"}));
    EXPECT_EQ(WithPrediction({2, "OK"}, false), (Health{2, "OK"}));
}

}  // namespace
}  // namespace qv::test
